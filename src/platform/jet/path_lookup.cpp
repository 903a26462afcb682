#include "platform/jet/path_lookup.h"

#include <algorithm>
#include <map>

#include "platform/jet/folding.h"
#include "platform/jet/stored_rows.h"

namespace jet {

namespace {

// `*\A\B\*` without its stars; empty for a pattern of another form.
std::string_view pathOf(std::string_view pattern) {
    if (pattern.size() < 4 || !pattern.starts_with("*\\") || !pattern.ends_with("\\*")) return {};
    const std::string_view path = pattern.substr(1, pattern.size() - 2);
    const auto isWild = [](char c) { return c == '*' || c == '?' || c == '#' || c == '['; };
    return path.size() < 2 || std::any_of(path.begin(), path.end(), isWild) ? std::string_view() : path;
}

bool isPathTest(const Condition& condition, const std::vector<Literal>& literals) {
    return condition.kind == Condition::Like && condition.operands[0].kind == Operand::Field &&
           condition.operands[0].column == Column::ruta &&
           !pathOf(literals[condition.operands[1].literal].text).empty();
}

// The place of the path test in the condition; -1 when there is none or not just one.
int placeOfPathTest(const Statement& statement, const std::vector<Literal>& literals) {
    if (!statement.where || statement.where->kind != Condition::And || statement.orderBy.empty() ||
        !statement.groupBy.empty()) {
        return -1;
    }
    const auto& tests = statement.where->children;
    const auto isTest = [&](const Condition& test) { return isPathTest(test, literals); };
    if (std::count_if(tests.begin(), tests.end(), isTest) != 1) return -1;
    return static_cast<int>(std::find_if(tests.begin(), tests.end(), isTest) - tests.begin());
}

std::string keyOf(const Query& query, int pathLiteral) {
    std::string key = query.lifted.shape;
    for (std::size_t i = 0; i < query.lifted.literals.size(); ++i) {
        if (static_cast<int>(i) == pathLiteral) continue;
        const std::string_view text = query.lifted.literals[i].text;
        key += '\0';
        key += std::to_string(text.size());
        key += ' ';
        key += text;
    }
    return key;
}

Statement withoutTest(const Statement& statement, int place) {
    Statement rest = statement;
    auto& tests = rest.where->children;
    tests.erase(tests.begin() + place);
    auto& fields = rest.fields;
    if (std::find(fields.begin(), fields.end(), Column::ruta) == fields.end()) fields.push_back(Column::ruta);
    return rest;
}

}  // namespace

class PathLookup::Index {
  public:
    // Nothing when the rows could not be read, or are too many to be kept.
    [[nodiscard]] static std::shared_ptr<Index> build(const Scan& scan);

    [[nodiscard]] const StoredRows::Selection& find(std::string_view path);

    [[nodiscard]] const CollectedRows& rows() const { return m_rows; }
    [[nodiscard]] const std::vector<Column>& fields() const { return m_fields; }

  private:
    using Runs = std::unordered_map<std::string_view, StoredRows::Selection>;

    [[nodiscard]] bool foldPaths();
    void addRuns(std::size_t components, Runs& runs) const;

    CollectedRows m_rows;
    std::vector<Column> m_fields;
    std::string m_folded;                // all paths, one behind the other
    std::vector<std::size_t> m_ends;     // of each row's path in m_folded
    std::map<std::size_t, Runs> m_runs;  // by number of components
};

std::shared_ptr<PathLookup::Index> PathLookup::Index::build(const Scan& scan) {
    auto index = std::make_shared<Index>();
    auto collected = collectRows(scan);
    if (!collected) return nullptr;
    index->m_rows = std::move(*collected);
    index->m_fields = scan.statement.fields;
    return index->foldPaths() ? index : nullptr;
}

bool PathLookup::Index::foldPaths() {
    const int place = FieldPlaces(m_fields)[Column::ruta];
    std::array<Value, columns.size()> values;
    for (const CollectedRows::Row& row : m_rows.rows()) {
        if (!row.packed) return false;
        RowStore::unpack(row.packed, std::span(values).first(m_fields.size()));
        appendFolded(m_folded, values[place].text());
        m_ends.push_back(m_folded.size());
    }
    return m_ends.size() <= UINT32_MAX;
}

void PathLookup::Index::addRuns(std::size_t components, Runs& runs) const {
    const std::string_view all = m_folded;
    std::vector<std::size_t> slashes;
    std::size_t begin = 0;
    for (std::size_t row = 0; row < m_ends.size(); ++row) {
        slashes.clear();
        for (std::size_t at = begin; at < m_ends[row]; ++at) {
            if (all[at] == '\\') slashes.push_back(at);
        }
        for (std::size_t i = 0; i + components < slashes.size(); ++i) {
            auto& found = runs[all.substr(slashes[i], slashes[i + components] - slashes[i] + 1)];
            if (found.empty() || found.back() != row) found.push_back(static_cast<std::uint32_t>(row));
        }
        begin = m_ends[row];
    }
}

const StoredRows::Selection& PathLookup::Index::find(std::string_view path) {
    static const StoredRows::Selection nothing;
    const std::size_t components = std::count(path.begin(), path.end(), '\\') - 1;
    auto [runs, isNew] = m_runs.try_emplace(components);
    if (isNew) addRuns(components, runs->second);
    const std::string wanted = folded(path);
    const auto found = runs->second.find(std::string_view(wanted));
    return found == runs->second.end() ? nothing : found->second;
}

std::unique_ptr<Recordset::Impl> PathLookup::open(const OwnedScan& owned, long long version) {
    const Scan scan = owned.scan();
    const int place = placeOfPathTest(scan.statement, scan.literals);
    if (place < 0) return nullptr;
    const int pathLiteral = scan.statement.where->children[place].operands[1].literal;
    if (m_known.size() >= mostKept) m_known.clear();
    const auto [found, isNew] = m_known.try_emplace(keyOf(*owned.query, pathLiteral));
    Known& known = found->second;
    if (isNew || known.version != version) {
        known = Known{version, nullptr, false};
        return nullptr;
    }
    if (known.tooLarge) return nullptr;
    if (!known.index) {
        const Statement rest = withoutTest(scan.statement, place);
        known.index = Index::build({scan.connection, scan.census, rest, scan.literals});
        known.tooLarge = !known.index;
        if (known.tooLarge) return nullptr;
    }
    const auto& selection = known.index->find(pathOf(scan.literals[pathLiteral].text));
    // The rows share the life of the index, which keeps the selection too.
    std::shared_ptr<const CollectedRows> rows(known.index, &known.index->rows());
    return std::make_unique<StoredRows>(owned.connection, std::move(rows), known.index->fields(), &selection);
}

}  // namespace jet
