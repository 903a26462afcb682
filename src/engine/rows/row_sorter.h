#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/rows/row_runs.h"

namespace engine {

// Takes the rows of a select one after the other and gives them in its order. More than `bound` bytes of them
// are sorted on disk, or refused.
class RowSorter {
  public:
    // What it takes are rows of these columns, the select's fields first, and behind them the row's number.
    using Columns = std::vector<Column>;
    // Begins with what a select shows, and adds what sorts it where that is not there yet.
    static void addColumns(Columns& columns, const Statement& statement);
    [[nodiscard]] static Columns columnsFor(const Statement& statement) {
        Columns columns;
        addColumns(columns, statement);
        return columns;
    }

    enum class Beyond { OnDisk, Refused };
    RowSorter(const Statement& statement, const Columns& columns, std::size_t bound,
              Beyond beyond = Beyond::OnDisk);

    // Takes the current row. False when there is no room; then what was taken is of no use.
    [[nodiscard]] Result<bool> add(const Prepared& row);

    [[nodiscard]] std::size_t bytes() const { return m_table.bytes(); }
    // Makes room ahead of the bound. False when the disk takes nothing; then too all is of no use.
    [[nodiscard]] bool makeRoom() { return m_runs.take(m_table); }

    // What was taken, in order; the rows are nothing when they could not be kept on disk.
    [[nodiscard]] RowTable table() &&;  // of a sorter that refuses
    [[nodiscard]] Result<std::unique_ptr<Rows>> rows() &&;

  private:
    const Statement* m_statement;
    std::vector<int> m_ordered;  // places of the columns that sort
    int m_rowid;
    Beyond m_beyond;
    RowTable m_table;
    RowRuns m_runs;
    std::string m_key;  // keeps its room from row to row
};

}  // namespace engine
