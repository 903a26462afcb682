#include "engine/rows/row_scan.h"

#include <algorithm>

#include "engine/rows/ordering.h"
#include "engine/rows/parallel_scan.h"

namespace engine {

namespace {

// Reading a row through the index costs about as much as passing over this many.
constexpr long long rowsPassedPerIndexedRow = 5;

bool triesPattern(const Condition& condition) {
    if (condition.kind == Condition::Like) return condition.operands.front().column != Column::disco;
    return std::any_of(condition.children.begin(), condition.children.end(),
                       [](const Condition& child) { return triesPattern(child); });
}

// `disco = ... and nivel = ...` is what the index was made for.
bool asksForOneLevel(const Condition& condition) {
    if (condition.kind == Condition::And) {
        return std::any_of(condition.children.begin(), condition.children.end(), asksForOneLevel);
    }
    return condition.kind == Condition::Equal && condition.operands[0].kind == Operand::Field &&
           condition.operands[0].column == Column::nivel && condition.operands[1].kind == Operand::Text;
}

// The units of the catalogue, one step through the index for each. A plain union ends where a damaged index
// leads back to a unit that was met before.
constexpr std::string_view unitList =
    "select 0, disco from (with recursive unit(disco) as (select (select disco from datos where disco >= '' "
    "and disco < x'' order by disco limit 1) "
    "union select (select disco from datos where disco > unit.disco and disco < x'' order by disco "
    "limit 1) "
    "from unit where unit.disco is not null) "
    "select disco from unit where disco is not null "
    "union all select null where exists (select 1 from datos where disco is null))";

bool isUnitList(const Statement& statement) {
    return !statement.where && statement.fields == statement.groupBy &&
           statement.groupBy == std::vector{Column::disco};
}

Result<Prepared> prepareAndBind(const Scan& scan, const SqlWriter& writer) {
    auto rows = scan.connection.prepare(writer.sql());
    if (rows) rows->bind(writer.values());
    return rows;
}

void writeRowsWithOrder(SqlWriter& writer, const Statement& statement, const Access& access) {
    writer.write("select rowid, ");
    writer.writeFields(statement.fields);
    for (const Ordering& ordering : statement.orderBy) {
        writer.write(", ");
        writer.write(info(ordering.column).name);
    }
    writeSource(writer, statement, access);
}

Result<long long> oneNumber(const Scan& scan, const SqlWriter& writer) {
    auto rows = prepareAndBind(scan, writer);
    if (!rows) return std::unexpected(rows.error());
    if (rows->step() != Prepared::Step::Row) return std::unexpected(scan.connection.lastError());
    return rows->integer(0);
}

// Between which rowids the rows of this access lie; nothing where only SQLite knows.
std::optional<Access> rangeOf(const Scan& scan, const Access& access) {
    if (access.kind == Access::Range) return access;
    if (!triesPattern(scan.statement) || asksForOneLevel(*scan.statement.where)) return std::nullopt;
    if (scan.census.extent(&*scan.statement.where, scan.literals)) return std::nullopt;
    auto ends =
        scan.connection.prepare("select (select min(rowid) from datos), (select max(rowid) from datos)");
    if (!ends || ends->step() != Prepared::Step::Row || ends->isNull(0)) return std::nullopt;
    return Access{Access::Range, ends->integer(0), ends->integer(1)};
}

}  // namespace

bool triesPattern(const Statement& statement) {
    return statement.where && triesPattern(*statement.where);
}

Access accessFor(const Scan& scan) {
    const auto& where = scan.statement.where;
    if (!where || asksForOneLevel(*where)) return {};
    const auto extent = scan.census.extent(&*where, scan.literals);
    if (!extent) return {};
    if (extent->rows == 0) return {Access::Nowhere};
    const long long passed = extent->lastRow - extent->firstRow + 1;
    if (passed / rowsPassedPerIndexedRow > extent->rows) return {};
    return {Access::Range, extent->firstRow, extent->lastRow};
}

void writeSource(SqlWriter& writer, const Statement& statement, const Access& access) {
    writer.write(" from datos");
    writer.write(access.hint());
    writeWhere(writer, statement, access);
}

void writeWhere(SqlWriter& writer, const Statement& statement, const Access& access) {
    switch (access.kind) {
        case Access::Nowhere:
            return writer.write(" where 0");
        case Access::Range:
            return writer.writeWhere(statement, access.firstRow, access.lastRow);
        case Access::AsSqliteChooses:
            return writer.writeWhere(statement);
    }
}

Result<Prepared> scanRows(const Scan& scan) {
    SqlWriter writer(scan.literals, scan.census);
    if (isUnitList(scan.statement)) {
        writer.write(unitList);
    } else {
        writer.write(scan.statement.groupBy.empty() ? "select rowid, " : "select 0, ");
        writer.writeFields(scan.statement.fields);
        writeSource(writer, scan.statement, accessFor(scan));
    }
    writer.writeGroupAndOrder(scan.statement);
    return prepareAndBind(scan, writer);
}

Result<Prepared> scanRowsWithOrder(const Scan& scan) {
    SqlWriter writer(scan.literals, scan.census);
    writeRowsWithOrder(writer, scan.statement, accessFor(scan));
    return prepareAndBind(scan, writer);
}

bool collectFrom(const Statement& statement, Prepared& rows, CollectedRows& collected) {
    const int firstOrdered = 1 + static_cast<int>(statement.fields.size());
    std::string key;
    auto last = rows.step();
    for (; last == Prepared::Step::Row; last = rows.step()) {
        key.clear();
        appendOrderKey(key, statement.orderBy, rows, firstOrdered);
        collected.add(rows, statement.fields, key);
    }
    return last == Prepared::Step::Done;
}

Result<CollectedRows> collectRows(const Scan& scan) {
    CollectedRows collected;
    Access access = accessFor(scan);
    if (access.kind == Access::Nowhere) return collected;
    const auto range = rangeOf(scan, access);
    if (range) access = *range;
    SqlWriter writer(scan.literals, scan.census);
    writeRowsWithOrder(writer, scan.statement, access);
    if (range && triesPattern(scan.statement)) {
        auto shared =
            collectInParallel(scan, {writer.sql(), writer.values()}, range->firstRow, range->lastRow);
        if (shared) return std::move(*shared);
    }
    auto rows = prepareAndBind(scan, writer);
    if (!rows) return std::unexpected(rows.error());
    if (!collectFrom(scan.statement, *rows, collected)) return std::unexpected(scan.connection.lastError());
    collected.sort();
    return collected;
}

Result<long long> countRows(const Scan& scan) {
    const Statement& statement = scan.statement;
    if (isUnitList(statement)) return scan.census.units().size();
    if (statement.groupBy.empty()) {
        const auto counted = scan.census.count(statement.where ? &*statement.where : nullptr, scan.literals);
        if (counted) return *counted;
    }
    SqlWriter writer(scan.literals, scan.census);
    const bool grouped = !statement.groupBy.empty();
    writer.write(grouped ? "select count(*) from (select 1" : "select count(*)");
    writeSource(writer, statement, accessFor(scan));
    if (grouped) {
        writer.write(" group by ");
        writer.writeFields(statement.groupBy);
        writer.write(")");
    }
    return oneNumber(scan, writer);
}

Result<bool> hasRows(const Scan& scan) {
    SqlWriter writer(scan.literals, scan.census);
    writer.write("select exists (select 1");
    writeSource(writer, scan.statement, accessFor(scan));
    writer.write(")");
    const auto found = oneNumber(scan, writer);
    if (!found) return std::unexpected(found.error());
    return *found != 0;
}

}  // namespace engine
