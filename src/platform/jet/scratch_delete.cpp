#include "platform/jet/scratch_delete.h"

#include <sqlite3.h>

#include <string>

#include "platform/jet/format.h"

namespace jet {

namespace {

constexpr long long fewestDeleted = 1000;

bool isAllButOneUnit(const std::optional<Condition>& where) {
    return where && where->kind == Condition::Unequal && where->operands[0].kind == Operand::Field &&
           where->operands[0].column == Column::disco && where->operands[1].kind == Operand::Text;
}

bool hasRowsWithoutUnit(Census& census) {
    return !census.units().empty() && !census.units().front().name;
}

bool run(const Scan& scan, const SqlWriter& writer) {
    auto prepared = scan.connection.prepare(writer.sql());
    if (!prepared) return false;
    prepared->bind(writer.values());
    return prepared->step() == Prepared::Step::Done;
}

std::optional<long long> countAll(Connection& connection) {
    auto counted = connection.prepare("select count(*) from datos");
    if (!counted || counted->step() != Prepared::Step::Row) return std::nullopt;
    return counted->integer(0);
}

// "create table kept ..." with the columns of the table.
std::string createKept() {
    std::string sql = createTable;
    return sql.replace(sql.find(tableName), tableName.size(), "kept");
}

bool saveKept(const Scan& kept) {
    std::string names = "rowid";
    for (const ColumnInfo& column : columns) names += ", " + std::string(column.name);
    SqlWriter writer(kept.literals, kept.census);
    writer.write("insert into kept (" + names + ") select " + names);
    writeSource(writer, kept.statement, accessFor(kept));
    return kept.connection.run(createKept().c_str()) && run(kept, writer);
}

bool replaceTable(Connection& connection) {
    return connection.run("drop table datos") && connection.run("alter table kept rename to datos") &&
           connection.run("release deleting");
}

}  // namespace

std::optional<long long> deleteAllButOneUnit(const Scan& scan) {
    if (!isAllButOneUnit(scan.statement.where) || hasRowsWithoutUnit(scan.census)) return std::nullopt;
    Statement statement = scan.statement;
    statement.where->kind = Condition::Equal;
    const Scan kept{scan.connection, scan.census, statement, scan.literals};
    const auto all = countAll(scan.connection);
    const auto keptRows = scan.census.count(&*statement.where, scan.literals);
    if (!all || !keptRows) return std::nullopt;
    const long long deleted = *all - *keptRows;
    if (deleted < fewestDeleted || deleted < *keptRows) return std::nullopt;

    if (!scan.connection.run("savepoint deleting")) return std::nullopt;
    const bool done = saveKept(kept) && replaceTable(scan.connection);
    if (!done) (void)scan.connection.run("rollback to deleting; release deleting");
    scan.connection.noteWrite();
    if (!done) return std::nullopt;
    scan.census.keepOnly(*statement.where, scan.literals);
    return deleted;
}

}  // namespace jet
