#include "engine/rows/row_sorter.h"

#include <algorithm>

#include "engine/rows/ordering.h"
#include "engine/rows/table_rows.h"

namespace engine {

void RowSorter::addColumns(Columns& columns, const Statement& statement) {
    if (columns.empty()) columns = statement.fields;
    for (const Ordering& ordering : statement.orderBy)
        if (std::ranges::find(columns, ordering.column) == columns.end()) columns.push_back(ordering.column);
}

RowSorter::RowSorter(const Statement& statement, const Columns& columns, std::size_t bound, Beyond beyond)
    : m_statement(&statement),
      m_rowid(static_cast<int>(columns.size())),
      m_beyond(beyond),
      m_table(statement.fields, bound) {
    for (const Ordering& ordering : statement.orderBy)
        m_ordered.push_back(static_cast<int>(std::ranges::find(columns, ordering.column) - columns.begin()));
}

Result<bool> RowSorter::add(const Prepared& row) {
    m_key.clear();
    TRY(appendOrderKey(m_key, m_statement->orderBy, row, m_ordered));
    const std::int64_t rowid = row.integer(m_rowid);
    if (m_table.add(row, m_key, rowid)) return true;
    return m_beyond == Beyond::OnDisk && makeRoom() && m_table.add(row, m_key, rowid);
}

RowTable RowSorter::table() && {
    m_table.sort();
    return std::move(m_table);
}

Result<std::unique_ptr<Rows>> RowSorter::rows() && {
    if (m_runs.empty())
        return std::make_unique<TableRows>(std::make_shared<RowTable>(std::move(*this).table()),
                                           m_statement->fields);
    if (!m_runs.take(m_table)) return nullptr;
    return RowRuns::merged(std::move(m_runs), m_statement->fields);
}

}  // namespace engine
