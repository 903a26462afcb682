#include "engine/rows/row_sorter.h"

#include <algorithm>

#include "engine/rows/table_rows.h"
#include "platform/other_thread.h"

namespace engine {

void RowSorter::addColumns(Columns& columns, const Statement& statement) {
    if (columns.empty()) columns = statement.fields;
    for (const Ordering& ordering : statement.orderBy)
        if (std::ranges::find(columns, ordering.column) == columns.end()) columns.push_back(ordering.column);
}

RowSorter::RowSorter(const Statement& statement, const Columns& columns, std::size_t bound, Beyond beyond)
    : m_shown(statement.fields),
      m_table(columns),
      m_sorted(std::make_unique<Sorted>(RowOrder(statement.orderBy, columns), bound, beyond)) {}

Result<bool> RowSorter::add(const Prepared& row) {
    constexpr std::size_t shares = 32;
    m_table.add(row);
    return m_table.bytes() < m_sorted->bound / shares || TRY(sortOnAnotherThread());
}

Result<bool> RowSorter::sortOnAnotherThread() {
    if (!TRY(sorted())) return false;
    auto table = std::make_shared<RowTable>(std::exchange(m_table, RowTable(m_table.fields())));
    m_sorted->bytes += table->bytes();
    m_sorting =
        platform::onOtherThread([sorted = m_sorted.get(), table] { return sorted->take(std::move(*table)); });
    return true;
}

// What was given to the other thread is.
Result<bool> RowSorter::sorted() {
    return m_sorting.valid() ? m_sorting.get() : true;
}

Result<bool> RowSorter::Sorted::take(RowTable table) {
    const std::size_t unsorted = table.bytes();
    TRY(table.sort(order));
    bytes += table.bytes() - unsorted;
    tables.push_back(std::move(table));
    if (bytes < bound && runs.empty()) return true;
    return beyond == Beyond::OnDisk && write();
}

bool RowSorter::Sorted::write() {
    if (!std::ranges::all_of(tables, [this](const RowTable& table) { return runs.take(table); }))
        return false;
    tables.clear();
    bytes = 0;
    return true;
}

Result<bool> RowSorter::sortTheRest() {
    if (!TRY(sorted())) return false;
    m_sorted->bytes += m_table.bytes();
    return TRY(m_sorted->take(std::move(m_table)));
}

Result<bool> RowSorter::makeRoom() {
    return TRY(sortOnAnotherThread()) && TRY(sorted()) && m_sorted->write();
}

Result<std::optional<RowTable>> RowSorter::table() && {
    if (!TRY(sortTheRest())) return std::nullopt;
    return RowTable::merged(std::move(m_sorted->tables));
}

Result<std::unique_ptr<Rows>> RowSorter::rows() && {
    if (!TRY(sortTheRest())) return nullptr;
    if (!m_sorted->runs.empty()) return RowRuns::merged(std::move(m_sorted->runs), m_shown);
    auto table = std::make_shared<RowTable>(RowTable::merged(std::move(m_sorted->tables)));
    return std::make_unique<TableRows>(std::move(table), m_shown);
}

}  // namespace engine
