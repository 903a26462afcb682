#include "engine/rows/joint_count.h"

#include <deque>

#include "engine/dialect/sql_writer.h"
#include "engine/file/read_transaction.h"

namespace engine {

Result<std::vector<long long>> countTogether(Connection& connection, UnitList& units,
                                             std::span<const Query> selects) {
    const ReadTransaction oneState(connection);
    if (oneState.failure()) return std::unexpected(*oneState.failure());
    std::string sql;
    std::vector<BoundValue> values;
    std::deque<SqlWriter> writers;  // they hold what the values look at
    for (const Query& select : selects) {
        const auto names = units.namesFor(select.statement());
        if (!names) return std::unexpected(names.error());
        SqlWriter& writer = writers.emplace_back(select.literals(), **names);
        writer.write(sql.empty() ? "select count(*)" : ", count(*)");
        if (const auto& where = select.statement().where) {
            writer.write(" filter (where ").writeCondition(*where);
            writer.write(")");
        }
        sql += writer.sql();
        values.insert(values.end(), writer.values().begin(), writer.values().end());
    }
    auto row = connection.prepare(sql + " from datos");
    if (!row) return std::unexpected(row.error());
    row->bind(values);
    if (row->step() != Prepared::Step::Row) return std::unexpected(connection.lastError());
    std::vector<long long> counts(selects.size());
    for (std::size_t i = 0; i < counts.size(); ++i) counts[i] = row->integer(static_cast<int>(i));
    return counts;
}

}  // namespace engine
