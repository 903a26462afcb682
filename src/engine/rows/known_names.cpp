#include "engine/rows/known_names.h"

#include <algorithm>
#include <limits>
#include <new>

#include "engine/dialect/bound_value.h"
#include "engine/file/read_transaction.h"
#include "engine/text/folding.h"
#include "engine/text/like_pattern.h"

namespace engine {

namespace {

using Found = KnownNames::Found;

constexpr std::string_view tipoOfFiles = "archivo";

// SQLite tells which rows are files, as it does for the condition. The names of the folders that files lie in
// would be many, and are not asked for.
constexpr const char* readNames =
    "select rowid, case when tipo = 'Archivo' collate engine_folded then null else carpeta end, archivo, "
    "comentario from datos not indexed where rowid >= ? order by rowid";

bool leavesNoFiles(const Condition& condition, const std::vector<Literal>& literals) {
    const auto& operands = condition.operands;
    return condition.kind == Condition::Unequal && operands[0].kind == Operand::Field &&
           operands[0].column == Column::tipo && operands[1].kind == Operand::Text &&
           equalFolded(literals[operands[1].literal].text, tipoOfFiles);
}

// Asks `find` for the rows whose column holds one of the texts that a pattern needs, and puts together what
// it finds. Nothing when that does not narrow the condition.
template <class Find>
class Narrowing {
  public:
    Narrowing(const std::vector<Literal>& literals, Find find) : m_literals(literals), m_find(find) {}

    std::optional<Found> of(const Condition& condition) const {
        switch (condition.kind) {
            case Condition::And:
                return ofAll(condition.children);
            case Condition::Or:
                return ofAny(condition.children);
            case Condition::Like:
                return ofPattern(condition, false);
            default:
                return std::nullopt;
        }
    }

  private:
    std::optional<Found> ofAll(const std::vector<Condition>& children) const {
        const bool noFiles = std::ranges::any_of(
            children, [this](const Condition& child) { return leavesNoFiles(child, m_literals); });
        for (const Condition& child : children) {
            auto found = child.kind == Condition::Like ? ofPattern(child, noFiles) : of(child);
            if (found) return found;
        }
        return std::nullopt;
    }

    std::optional<Found> ofAny(const std::vector<Condition>& children) const {
        Found all;
        for (const Condition& child : children) {
            const auto found = of(child);
            if (!found) return std::nullopt;
            all.insert(all.end(), found->begin(), found->end());
        }
        std::ranges::sort(all);
        all.erase(std::ranges::unique(all).begin(), all.end());
        return all;
    }

    std::optional<Found> ofPattern(const Condition& like, bool noFiles) const {
        const auto& operands = like.operands;
        if (operands[0].kind != Operand::Field || operands[1].kind != Operand::Text) return std::nullopt;
        const Column column = operands[0].column;
        if (column == Column::carpeta && !noFiles) return std::nullopt;
        const auto [text, signs] = patternOf(like, m_literals);
        for (const std::string& held : LikePattern(text, signs).heldTexts())
            if (auto found = m_find(column, held)) return found;
        return std::nullopt;
    }

    const std::vector<Literal>& m_literals;
    Find m_find;
};

bool isKept(Column column) {
    return column == Column::carpeta || column == Column::archivo || column == Column::comentario;
}

}  // namespace

void KnownNames::drop() {
    m_state.reset();
    m_names = Names::Unread;
    m_rows = 0;
    m_lastRow.reset();
    m_folders = m_files = m_notes = FoldedTexts();
}

std::size_t KnownNames::bytes() const {
    return m_folders.bytes() + m_files.bytes() + m_notes.bytes();
}

bool KnownNames::add(std::int64_t row, const Prepared& values) {
    if (m_lastRow && row <= *m_lastRow) return false;  // of a damaged table
    m_lastRow = row;
    ++m_rows;
    int column = 1;
    for (FoldedTexts* texts : {&m_folders, &m_files, &m_notes}) {
        const int at = column++;
        if (values.isNull(at)) continue;
        const std::string_view text = values.text(at);
        if (!text.data()) return false;  // no memory for it
        texts->add(row, text);
    }
    return true;
}

// False when reading failed; nothing is known then.
bool KnownNames::read(Connection& connection, long long rows) {
    try {
        constexpr auto last = std::numeric_limits<std::int64_t>::max();
        auto values = connection.prepare(readNames);
        if (!values) return false;
        if (m_lastRow != last) {
            values->bind(0, m_lastRow ? *m_lastRow + 1 : std::numeric_limits<std::int64_t>::min());
            for (auto there = values->next(); !there || *there; there = values->next()) {
                if (!there || !add(values->integer(0), *values)) return false;
                if (bytes() > mostBytes) {
                    m_folders = m_files = m_notes = FoldedTexts();
                    m_names = Names::TooMany;
                    return true;
                }
                if (--rows == 0) return true;
            }
        }
        m_names = Names::Whole;
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool KnownNames::readOn(Connection& connection, long long rows) {
    if (m_names != Names::Unread || !m_state) return false;
    const auto oneState = ReadTransaction::begin(connection);
    const auto state = oneState ? lockedState(connection) : std::nullopt;
    if (!state || !isIn(*state) || !read(connection, rows)) {
        drop();
        return false;
    }
    return m_names == Names::Unread;
}

std::optional<Found> KnownNames::rowsFor(Connection& connection, const Condition& condition,
                                         const std::vector<Literal>& literals) {
    constexpr std::size_t alwaysFew = 100;
    constexpr std::size_t rowsPassedPerRowFound = 64;
    const auto mayHelp = [](Column column, const std::string&) {
        return isKept(column) ? std::optional(Found()) : std::nullopt;
    };
    if (!Narrowing(literals, mayHelp).of(condition)) return std::nullopt;

    const auto state = lockedState(connection);
    if (!state || !isIn(*state)) {
        drop();
        m_state = state;
        m_foundIn = m_search;
        return std::nullopt;
    }
    if (m_names == Names::TooMany || (m_names == Names::Unread && m_foundIn == m_search)) return std::nullopt;
    if (m_names == Names::Unread && !read(connection, std::numeric_limits<long long>::max())) {
        drop();
        return std::nullopt;
    }
    const auto most = alwaysFew + static_cast<std::size_t>(m_rows) / rowsPassedPerRowFound;
    const auto find = [&](Column column, const std::string& held) -> std::optional<Found> {
        switch (column) {
            case Column::carpeta:
                return m_folders.holding(held, most);
            case Column::archivo:
                return m_files.holding(held, most);
            case Column::comentario:
                return m_notes.holding(held, most);
            default:
                return std::nullopt;
        }
    };
    return m_names == Names::Whole ? Narrowing(literals, find).of(condition) : std::nullopt;
}

}  // namespace engine
