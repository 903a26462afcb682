#include "engine/rows/path_lookup.h"

#include <algorithm>

#include "engine/text/like_pattern.h"

namespace engine {

namespace {

// `*\A\B\*` without its stars; empty for a pattern of another form, and for one whose wildcards may stand for
// a backslash.
std::string_view pathOf(std::string_view pattern) {
    if (pattern.size() < 4 || !pattern.starts_with("*\\") || !pattern.ends_with("\\*")) return {};
    const std::string_view path = pattern.substr(1, pattern.size() - 2);
    if (path.find('*') != path.npos) return {};
    return !holdsSigns(path) || !LikePattern(path).hasWildcardFor(U'\\') ? path : std::string_view();
}

bool isPathTest(const Condition& condition, const std::vector<Literal>& literals) {
    return condition.kind == Condition::Like && condition.operands[0].kind == Operand::Field &&
           condition.operands[0].column == Column::ruta &&
           !pathOf(literals[condition.operands[1].literal].text).empty();
}

bool isLevelTest(const Condition& condition) {
    return condition.kind == Condition::Equal && condition.operands[0].kind == Operand::Field &&
           condition.operands[0].column == Column::nivel && condition.operands[1].kind == Operand::Text;
}

void addField(std::vector<Column>& fields, Column field) {
    if (std::find(fields.begin(), fields.end(), field) == fields.end()) fields.push_back(field);
}

// The place of the only test of its kind; -1 when there is none or not just one.
template <class IsTest>
int placeOf(const std::vector<Condition>& tests, IsTest isTest) {
    const auto first = std::find_if(tests.begin(), tests.end(), isTest);
    if (first == tests.end() || std::any_of(first + 1, tests.end(), isTest)) return -1;
    return static_cast<int>(first - tests.begin());
}

}  // namespace

// The tests of a condition that a look-up stands in for.
struct PathLookup::Tests {
    int path = -1;  // their places in the condition
    int level = -1;
    int pathLiteral = -1;
    int levelLiteral = -1;

    Tests(const Statement& statement, const std::vector<Literal>& literals) {
        if (!statement.where || statement.where->kind != Condition::And || statement.orderBy.empty() ||
            !statement.groupBy.empty()) {
            return;
        }
        const auto& tests = statement.where->children;
        path = placeOf(tests, [&](const Condition& test) { return isPathTest(test, literals); });
        level = placeOf(tests, isLevelTest);
        if (path >= 0) pathLiteral = tests[path].operands[1].literal;
        if (level >= 0) levelLiteral = tests[level].operands[1].literal;
    }

    [[nodiscard]] bool areOtherLiterals(const std::vector<std::string>& others,
                                        const std::vector<Literal>& literals) const {
        std::size_t next = 0;
        for (int i = 0; i < std::ssize(literals); ++i) {
            if (i != pathLiteral && i != levelLiteral && others[next++] != literals[i].text) return false;
        }
        return true;
    }

    [[nodiscard]] std::vector<std::string> otherLiterals(const std::vector<Literal>& literals) const {
        std::vector<std::string> others;
        for (int i = 0; i < std::ssize(literals); ++i) {
            if (i != pathLiteral && i != levelLiteral) others.emplace_back(literals[i].text);
        }
        return others;
    }

    // The statement without them. Its additional fields stand behind its own.
    [[nodiscard]] Statement left(const Statement& statement) const {
        Statement rest = statement;
        auto& tests = rest.where->children;
        tests.clear();
        for (int i = 0; i < std::ssize(statement.where->children); ++i) {
            if (i != path && i != level) tests.push_back(statement.where->children[i]);
        }
        if (tests.empty()) rest.where.reset();
        addField(rest.fields, Column::ruta);
        if (level >= 0) addField(rest.fields, Column::nivel);
        return rest;
    }
};

PathLookup::Known& PathLookup::knownFor(const Query& query, const Tests& tests) {
    const auto found = std::find_if(m_known.begin(), m_known.end(), [&](const Known& known) {
        return known.statement == query.shared() && known.pathLiteral == tests.pathLiteral &&
               tests.areOtherLiterals(known.others, query.literals());
    });
    if (found != m_known.end()) return *found;
    if (m_known.size() >= mostKept) m_known.clear();
    return m_known.emplace_back(Known{.statement = query.shared(),
                                      .pathLiteral = tests.pathLiteral,
                                      .others = tests.otherLiterals(query.literals())});
}

// Leaves the index empty when the statement is to be scanned.
Result<> PathLookup::bringUpToDate(Known& known, const Tests& tests, const Select& select) {
    const auto version = select.connection()->version();
    const bool isNew = !version || known.version != *version;
    if (isNew) {
        known.version = version.value_or(-1);
        known.index = nullptr;
        known.tooLarge = false;
    }
    if (!version) return std::unexpected(version.error());
    // A working copy is made to be asked again and again.
    if (isNew && select.connection()->use() != Use::Scratch) return {};
    if (known.index || known.tooLarge) return {};
    auto table = TRY(select.with(tests.left(select.statement())).table());
    known.tooLarge = !table;
    if (table) {
        known.index = std::make_shared<PathIndex>(
            std::move(*table), tests.level >= 0 ? PathIndex::Levels::Apart : PathIndex::Levels::Together);
    }
    return {};
}

Result<std::unique_ptr<Rows>> PathLookup::rows(const Select& select) {
    const auto& literals = select.query().literals();
    const Tests tests(select.statement(), literals);
    if (tests.path < 0) return nullptr;
    Known& known = knownFor(select.query(), tests);
    TRY(bringUpToDate(known, tests, select));
    if (!known.index) return nullptr;
    const auto& index = known.index;
    const auto& selection = index->find(tests.level >= 0 ? literals[tests.levelLiteral].text : "",
                                        pathOf(literals[tests.pathLiteral].text));
    // Both share the life of the index.
    return std::make_unique<TableRows>(std::shared_ptr<const RowTable>(index, &index->table()),
                                       select.statement().fields,
                                       std::shared_ptr<const TableRows::Selection>(index, &selection));
}

}  // namespace engine
