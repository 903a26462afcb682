#include "engine/rows/scratch_delete.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>

#include "engine/format.h"

namespace engine {

namespace {

constexpr long long fewestDeleted = 1000;

bool isAllButOneUnit(const std::optional<Condition>& where) {
    return where && where->kind == Condition::Unequal && where->operands[0].kind == Operand::Field &&
           where->operands[0].column == Column::disco && where->operands[1].kind == Operand::Text;
}

bool hasRowsWithoutUnit(Census& census) {
    return !census.units().empty() && !census.units().front().name;
}

// The number of rows that it changes; nothing when it fails.
std::optional<long long> run(Connection& connection, const std::string& sql,
                             std::span<const BoundValue> values = {}) {
    auto prepared = connection.prepare(sql);
    if (!prepared) return std::nullopt;
    prepared->bind(values);
    if (prepared->step() != Prepared::Step::Done) return std::nullopt;
    return sqlite3_changes64(connection.handle());
}

std::optional<long long> rowsAtMost(Connection& connection) {
    auto ends = connection.prepare("select (select min(rowid) from datos), (select max(rowid) from datos)");
    if (!ends || ends->step() != Prepared::Step::Row) return std::nullopt;
    return ends->integer(1) - ends->integer(0) + 1;
}

// "create table kept ..." with the columns of the table.
std::string createKept() {
    std::string sql = createTable;
    return sql.replace(sql.find(tableName), tableName.size(), "kept");
}

// In the order that they had, and numbered anew: to keep each row's number would cost a search for each.
bool saveKept(const Scan& kept) {
    std::string names;
    for (const ColumnInfo& column : columns) names.append(names.empty() ? "" : ", ").append(column.name);
    SqlWriter writer(kept.literals, kept.census);
    writer.write("insert into kept (" + names + ") select " + names);
    writeSource(writer, kept.statement, accessFor(kept));
    writer.write(" order by rowid");
    return run(kept.connection, createKept()) && run(kept.connection, writer.sql(), writer.values());
}

// The number of rows that the old table had.
std::optional<long long> replaceTable(Connection& connection) {
    const auto all = run(connection, "delete from datos");
    const bool done = all && connection.run("drop table datos; alter table kept rename to datos");
    return done && connection.run("release deleting") ? all : std::nullopt;
}

}  // namespace

std::optional<long long> deleteAllButOneUnit(const Scan& scan) {
    if (!isAllButOneUnit(scan.statement.where) || hasRowsWithoutUnit(scan.census)) return std::nullopt;
    Statement statement = scan.statement;
    statement.where->kind = Condition::Equal;
    const Scan kept{scan.connection, scan.census, statement, scan.literals};
    const auto keptRows = scan.census.count(&*statement.where, scan.literals);
    const auto most = rowsAtMost(scan.connection);
    if (!keptRows || !most || *most - *keptRows < std::max(fewestDeleted, *keptRows)) return std::nullopt;

    if (!scan.connection.run("savepoint deleting")) return std::nullopt;
    const auto all = saveKept(kept) ? replaceTable(scan.connection) : std::nullopt;
    if (!all) (void)scan.connection.run("rollback to deleting; release deleting");
    scan.connection.noteWrite();
    if (!all) return std::nullopt;
    scan.census.keepOnly(*statement.where, scan.literals);
    return *all - *keptRows;
}

}  // namespace engine
