#include "engine/rows/select.h"

#include <algorithm>

#include "engine/file/read_transaction.h"
#include "engine/rows/cursor.h"
#include "engine/rows/ordering.h"
#include "engine/rows/table_rows.h"

namespace engine {

namespace {

bool isUnitList(const Statement& statement) {
    return !statement.where && statement.fields == statement.groupBy &&
           statement.groupBy == std::vector{Column::disco};
}

// True when a condition leaves rows of one spelling of a unit's name at most.
bool asksForOneUnit(const Condition& condition, const UnitNames& names,
                    const std::vector<Literal>& literals) {
    if (condition.kind == Condition::And) {
        return std::ranges::any_of(condition.children, [&](const Condition& child) {
            return asksForOneUnit(child, names, literals);
        });
    }
    return condition.kind != Condition::Unequal && UnitNames::decide(condition) &&
           names.named(condition, literals).size() <= 1;
}

}  // namespace

bool triesPattern(const Condition& condition) {
    if (condition.kind == Condition::Like) return condition.operands.front().column != Column::disco;
    return std::ranges::any_of(condition.children, triesPattern);
}

Select Select::with(Statement statement) const {
    return {m_connection, m_units,
            Query(std::make_shared<const Statement>(std::move(statement)), m_query.literals())};
}

template <class Write>
Result<Prepared> Select::prepared(Write write) const {
    const auto units = m_units->namesFor(statement());
    if (!units) return std::unexpected(units.error());
    SqlWriter writer(m_query.literals(), **units);
    write(writer);
    auto rows = m_connection->prepare(writer.sql());
    if (rows) rows->bind(writer.values());
    return rows;
}

void Select::writeFrom(SqlWriter& writer) const {
    writer.write(" from datos");
    writer.writeWhere(statement());
}

// An order by unit says nothing when all rows are of one.
Result<bool> Select::isOrderNeeded() const {
    const auto& orderBy = statement().orderBy;
    if (orderBy.empty() || !statement().groupBy.empty()) return false;
    const auto isUnit = [](const Ordering& ordering) { return ordering.column == Column::disco; };
    if (!statement().where || !std::ranges::all_of(orderBy, isUnit)) return true;
    const auto units = m_units->namesFor(statement());
    if (!units) return std::unexpected(units.error());
    return !asksForOneUnit(*statement().where, **units, m_query.literals());
}

Result<std::unique_ptr<Rows>> Select::rows(std::size_t bound) const {
    const ReadTransaction oneState(*m_connection);
    const auto sorted = isOrderNeeded();
    if (!sorted) return std::unexpected(sorted.error());
    if (*sorted) {
        auto kept = table(bound);
        if (!kept) return std::unexpected(kept.error());
        if (*kept)
            return std::make_unique<TableRows>(std::make_shared<RowTable>(std::move(**kept)),
                                               statement().fields);
    }
    auto found = prepared([&](SqlWriter& writer) {
        if (isUnitList(statement())) {
            writer.write(UnitList::sql);
        } else {
            writer.write("select ");
            writer.writeFields(statement().fields);
            writeFrom(writer);
        }
        writer.writeGroupBy(statement());
        if (*sorted || !statement().groupBy.empty()) writer.writeOrderBy(statement());
    });
    if (!found) return std::unexpected(found.error());
    return Cursor::open(m_connection, std::move(*found), statement().fields);
}

Result<std::optional<RowTable>> Select::table(std::size_t bound) const {
    const ReadTransaction oneState(*m_connection);
    const auto& [kind, fields, assignments, where, groupBy, orderBy] = statement();
    auto rows = prepared([&](SqlWriter& writer) {
        writer.write("select ");
        writer.writeFields(fields);
        for (const Ordering& ordering : orderBy) writer.write(", ").write(info(ordering.column).name);
        writer.write(", rowid");
        writeFrom(writer);
    });
    if (!rows) return std::unexpected(rows.error());
    const int firstOrdered = static_cast<int>(fields.size());
    const int rowid = firstOrdered + static_cast<int>(orderBy.size());
    RowTable table(fields, bound);
    std::string key;
    auto step = rows->step();
    for (; step == Prepared::Step::Row; step = rows->step()) {
        key.clear();
        if (auto appended = appendOrderKey(key, orderBy, *rows, firstOrdered); !appended)
            return std::unexpected(appended.error());
        if (!table.add(*rows, key, rows->integer(rowid))) return std::nullopt;
    }
    if (step == Prepared::Step::Failed) return std::unexpected(m_connection->lastError());
    table.sort();
    return table;
}

Result<long long> Select::number(Result<Prepared> rows) const {
    if (!rows) return std::unexpected(rows.error());
    if (rows->step() != Prepared::Step::Row) return std::unexpected(m_connection->lastError());
    return rows->integer(0);
}

Result<long long> Select::count() const {
    const ReadTransaction oneState(*m_connection);
    return number(prepared([&](SqlWriter& writer) {
        if (statement().groupBy.empty()) {
            writer.write("select count(*)");
            return writeFrom(writer);
        }
        writer.write("select count(*) from (");
        if (isUnitList(statement())) {
            writer.write(UnitList::sql);
        } else {
            writer.write("select 1");
            writeFrom(writer);
            writer.writeGroupBy(statement());
        }
        writer.write(")");
    }));
}

Result<bool> Select::exists() const {
    const ReadTransaction oneState(*m_connection);
    const auto found = number(prepared([&](SqlWriter& writer) {
        writer.write("select exists (select 1");
        writeFrom(writer);
        writer.write(")");
    }));
    if (!found) return std::unexpected(found.error());
    return *found != 0;
}

}  // namespace engine
