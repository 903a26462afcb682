#include "platform/jet/row_scan.h"

#include <algorithm>

#include "platform/jet/ordering.h"

namespace jet {

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

// The units of the catalogue, one step through the index for each.
constexpr std::string_view unitList =
    "select 0, disco from (with recursive unit(disco) as (select (select disco from datos where disco >= '' order by disco limit 1) "
    "union all select (select disco from datos where disco > unit.disco order by disco limit 1) "
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

Result<long long> oneNumber(const Scan& scan, const SqlWriter& writer) {
    auto rows = prepareAndBind(scan, writer);
    if (!rows) return std::unexpected(rows.error());
    if (rows->step() != Prepared::Step::Row) return std::unexpected(scan.connection.lastError());
    return rows->integer(0);
}

Result<> collectFrom(const Scan& scan, Prepared& rows, CollectedRows& collected) {
    const int firstOrdered = 1 + static_cast<int>(scan.statement.fields.size());
    std::string key;
    auto last = rows.step();
    for (; last == Prepared::Step::Row; last = rows.step()) {
        key.clear();
        appendOrderKey(key, scan.statement.orderBy, rows, firstOrdered);
        collected.add(rows, scan.statement.fields, key);
    }
    if (last == Prepared::Step::Failed) return std::unexpected(scan.connection.lastError());
    return {};
}

}  // namespace

bool triesPattern(const Statement& statement) { return statement.where && triesPattern(*statement.where); }

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
        case Access::Nowhere: return writer.write(" where 0");
        case Access::Range: return writer.writeWhere(statement, access.firstRow, access.lastRow);
        case Access::AsSqliteChooses: return writer.writeWhere(statement);
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

Result<CollectedRows> collectRows(const Scan& scan) {
    CollectedRows collected;
    const Access access = accessFor(scan);
    if (access.kind == Access::Nowhere) return collected;
    SqlWriter writer(scan.literals, scan.census);
    writer.write("select rowid, ");
    writer.writeFields(scan.statement.fields);
    for (const Ordering& ordering : scan.statement.orderBy) {
        writer.write(", ");
        writer.write(info(ordering.column).name);
    }
    writeSource(writer, scan.statement, access);
    auto rows = prepareAndBind(scan, writer);
    if (!rows) return std::unexpected(rows.error());
    if (auto done = collectFrom(scan, *rows, collected); !done) return std::unexpected(done.error());
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

}  // namespace jet
