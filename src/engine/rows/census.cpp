#include "engine/rows/census.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/file/read_transaction.h"

namespace engine {

namespace {

KnownTexts::Text textOf(const Prepared& row, int column) {
    return row.isNull(column) ? std::nullopt : KnownTexts::Text(row.text(column));
}

BoundValue valueOf(const KnownTexts::Text& text) {
    return text ? BoundValue(std::string_view(*text)) : BoundValue();
}

const std::string ofGroup = " where disco is ? and nivel is ? and tipo is ?";

// What a column of the index is searched for. Values that are no texts stand behind all texts.
enum class Sought { Null, FirstText, NextText, Bytes };

std::string searchFor(Sought sought, std::string_view column, std::string_view condition) {
    constexpr std::string_view tests[]{" is null", " >= ''", " > ?", " >= x''"};
    std::string sql = "select ";
    sql.append(column).append(" from datos where ").append(condition);
    sql.append(column).append(tests[static_cast<std::size_t>(sought)]);
    const bool isText = sought == Sought::FirstText || sought == Sought::NextText;
    if (isText) sql.append(" and ").append(column).append(" < x''");
    sql.append(" order by ").append(column).append(" limit 1");
    return sql;
}

KnownTexts knownOf(const Census::Unit& unit) {
    KnownTexts known;
    known.set(Column::disco, unit.name);
    return known;
}

KnownTexts knownOf(const Census::Unit& unit, const Census::Group& group) {
    KnownTexts known = knownOf(unit);
    known.set(Column::nivel, group.nivel);
    known.set(Column::tipo, group.tipo);
    return known;
}

}  // namespace

Result<> Census::refresh() {
    const auto version = m_connection.version();
    if (!version) {
        m_units.reset();
        m_version.reset();
        return std::unexpected(version.error());
    }
    if (m_version != *version) {
        m_units.reset();
        m_noted.clear();
        m_isComplete = true;
    }
    m_version = *version;
    return {};
}

void Census::keepOnly(const Condition& where, const std::vector<Literal>& literals) {
    auto kept = std::exchange(m_units, std::nullopt);
    if (!refresh() || !kept) return;
    std::erase_if(*kept, [&](const Unit& unit) { return !mayHold(where, knownOf(unit), literals); });
    std::int64_t rows = 0;
    for (Unit& unit : *kept) {
        for (const Group& group : groupsOf(unit)) rows += group.rows;
    }
    for (Unit& unit : *kept) {
        for (Group& group : *unit.groups) {
            group.firstRow = 1;
            group.lastRow = rows;
        }
    }
    m_units = std::move(kept);
}

const std::vector<Census::Unit>& Census::units() {
    if (!m_units) readUnits();
    return *m_units;
}

std::vector<KnownTexts::Text> Census::textsOf(std::string_view column, std::string_view condition,
                                              std::span<const BoundValue> values) {
    std::vector<KnownTexts::Text> texts;
    const auto find = [&](Sought sought) {
        auto row = m_connection.prepare(searchFor(sought, column, condition));
        if (!row) return false;
        row->bind(values);
        if (sought == Sought::NextText)
            row->bind(static_cast<int>(values.size()), std::string_view(*texts.back()));
        if (row->step() != Prepared::Step::Row) return false;
        if (sought == Sought::Bytes) return true;
        auto text = textOf(*row, 0);
        // A damaged index may lead backwards, and so without end.
        if (sought == Sought::NextText && !(texts.back() < text)) {
            m_isComplete = false;
            return false;
        }
        texts.push_back(std::move(text));
        return true;
    };
    (void)find(Sought::Null);
    for (bool found = find(Sought::FirstText); found;) found = find(Sought::NextText);
    if (find(Sought::Bytes)) m_isComplete = false;
    return texts;
}

void Census::readUnits() {
    const ReadTransaction reads(m_connection);
    auto& units = m_units.emplace();
    for (auto& name : textsOf("disco", "", {})) units.push_back({std::move(name), {}});
}

// One step through the index for each group, and one for each row of it that does no more than count.
const std::vector<Census::Group>& Census::groupsOf(Unit& unit) {
    if (unit.groups) return *unit.groups;
    auto& groups = unit.groups.emplace();
    const BoundValue name = valueOf(unit.name);
    for (const auto& nivel : textsOf("nivel", "disco is ? and ", std::array{name})) {
        const std::array level{name, valueOf(nivel)};
        for (const auto& tipo : textsOf("tipo", "disco is ? and nivel is ? and ", level)) {
            const std::array values{name, level[1], valueOf(tipo)};
            // Within a group the index goes by rowid: asking for its ends beats min() and max() over all.
            groups.push_back(
                {nivel, tipo, firstNumber("select count(*) from datos" + ofGroup, values),
                 firstNumber("select rowid from datos" + ofGroup + " order by rowid limit 1", values),
                 firstNumber("select rowid from datos" + ofGroup + " order by rowid desc limit 1", values)});
        }
    }
    return groups;
}

std::int64_t Census::firstNumber(const std::string& sql, std::span<const BoundValue> values) {
    auto rows = m_connection.prepare(sql);
    if (!rows) return 0;
    rows->bind(values);
    return rows->step() == Prepared::Step::Row ? rows->integer(0) : 0;
}

void Census::noteCount(const Condition& where, const std::vector<Literal>& literals, long long rows,
                       long long version) {
    if (version != this->version() || notedCount(where, literals)) return;
    if (m_noted.size() >= mostNoted) m_noted.clear();
    Noted& noted = m_noted.emplace_back(Noted{where, {}, rows});
    for (const Literal& literal : literals) noted.literals.emplace_back(literal.text);
}

std::optional<long long> Census::notedCount(const Condition& where,
                                            const std::vector<Literal>& literals) const {
    const auto isSame = [](const std::string& noted, const Literal& asked) { return noted == asked.text; };
    for (const Noted& noted : m_noted) {
        if (noted.where == where && std::ranges::equal(noted.literals, literals, isSame)) return noted.rows;
    }
    return std::nullopt;
}

std::optional<long long> Census::count(const Condition* where, const std::vector<Literal>& literals) {
    if (const auto noted = where ? notedCount(*where, literals) : std::nullopt) return noted;
    const Unit anyUnit;
    if (where && !isDecidable(*where, knownOf(anyUnit, Group{}))) return std::nullopt;
    const ReadTransaction reads(m_connection);
    (void)units();
    long long sum = 0;
    for (Unit& unit : *m_units) {
        if (where && !mayHold(*where, knownOf(unit), literals)) continue;
        for (const Group& group : groupsOf(unit)) {
            if (!where || decide(*where, knownOf(unit, group), literals) == Truth::Yes) sum += group.rows;
        }
    }
    return m_isComplete ? std::optional(sum) : std::nullopt;
}

std::optional<Census::Extent> Census::extent(const Condition* where, const std::vector<Literal>& literals) {
    if (!where) return std::nullopt;
    const ReadTransaction reads(m_connection);
    (void)units();
    std::vector<Unit*> candidates;
    for (Unit& unit : *m_units) {
        if (mayHold(*where, knownOf(unit), literals)) candidates.push_back(&unit);
    }
    if (!m_units->empty() && candidates.size() == m_units->size()) return std::nullopt;
    Extent extent;
    for (Unit* unit : candidates) {
        for (const Group& group : groupsOf(*unit)) {
            if (!mayHold(*where, knownOf(*unit, group), literals)) continue;
            extent.firstRow = extent.rows == 0 ? group.firstRow : std::min(extent.firstRow, group.firstRow);
            extent.lastRow = extent.rows == 0 ? group.lastRow : std::max(extent.lastRow, group.lastRow);
            extent.rows += group.rows;
        }
    }
    return m_isComplete ? std::optional(extent) : std::nullopt;
}

}  // namespace engine
