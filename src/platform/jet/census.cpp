#include "platform/jet/census.h"

#include <algorithm>
#include <utility>

namespace jet {

namespace {

KnownTexts::Text textOf(const Prepared& row, int column) {
    return row.isNull(column) ? std::nullopt : KnownTexts::Text(row.text(column));
}

BoundValue valueOf(const KnownTexts::Text& text) {
    return text ? BoundValue(std::string_view(*text)) : BoundValue();
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
    if (m_version != *version) m_units.reset();
    m_version = *version;
    return {};
}

void Census::keepOnly(const Condition& where, const std::vector<Literal>& literals) {
    auto kept = std::exchange(m_units, std::nullopt);
    if (!refresh() || !kept) return;
    std::erase_if(*kept, [&](const Unit& unit) { return !mayHold(where, knownOf(unit), literals); });
    m_units = std::move(kept);
}

const std::vector<Census::Unit>& Census::units() {
    if (!m_units) readUnits();
    return *m_units;
}

void Census::readUnits() {
    auto& units = m_units.emplace();
    auto null = m_connection.prepare("select 1 from datos where disco is null limit 1");
    if (null && null->step() == Prepared::Step::Row) units.push_back({std::nullopt, {}});
    auto next = m_connection.prepare("select disco from datos where disco >= '' order by disco limit 1");
    if (!next || next->step() != Prepared::Step::Row) return;
    units.push_back({textOf(*next, 0), {}});
    next = m_connection.prepare("select disco from datos where disco > ? order by disco limit 1");
    while (next) {
        next->bind(0, std::string_view(*units.back().name));
        if (next->step() != Prepared::Step::Row) return;
        units.push_back({textOf(*next, 0), {}});
        next->reset();
    }
}

const std::vector<Census::Group>& Census::groupsOf(Unit& unit) {
    if (unit.groups) return *unit.groups;
    auto& groups = unit.groups.emplace();
    auto rows =
        m_connection.prepare("select nivel, tipo, count(*) from datos where disco is ? group by nivel, tipo");
    if (!rows) return groups;
    const BoundValue name = valueOf(unit.name);
    rows->bind(0, name);
    while (rows->step() == Prepared::Step::Row) {
        groups.push_back({textOf(*rows, 0), textOf(*rows, 1), rows->integer(2), 0, 0});
    }
    // Within a group the index goes by rowid: asking for its two ends beats min() and max() over all of it.
    for (Group& group : groups) {
        const BoundValue values[] = {name, valueOf(group.nivel), valueOf(group.tipo)};
        group.firstRow = firstNumber(
            "select rowid from datos where disco is ? and nivel is ? and tipo is ? "
            "order by rowid limit 1",
            values);
        group.lastRow = firstNumber(
            "select rowid from datos where disco is ? and nivel is ? and tipo is ? "
            "order by rowid desc limit 1",
            values);
    }
    return groups;
}

std::int64_t Census::firstNumber(const std::string& sql, std::span<const BoundValue> values) {
    auto rows = m_connection.prepare(sql);
    if (!rows) return 0;
    rows->bind(values);
    return rows->step() == Prepared::Step::Row ? rows->integer(0) : 0;
}

std::optional<long long> Census::count(const Condition* where, const std::vector<Literal>& literals) {
    const Unit anyUnit;
    if (where && !isDecidable(*where, knownOf(anyUnit, Group{}))) return std::nullopt;
    (void)units();
    long long sum = 0;
    for (Unit& unit : *m_units) {
        if (where && !mayHold(*where, knownOf(unit), literals)) continue;
        for (const Group& group : groupsOf(unit)) {
            if (!where || decide(*where, knownOf(unit, group), literals) == Truth::Yes) sum += group.rows;
        }
    }
    return sum;
}

std::optional<Census::Extent> Census::extent(const Condition* where, const std::vector<Literal>& literals) {
    if (!where) return std::nullopt;
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
    return extent;
}

}  // namespace jet
