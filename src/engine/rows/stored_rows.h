#pragma once

#include <memory>
#include <vector>

#include "engine/rows/recordset_impl.h"

namespace engine {

// Rows collected for a select, and its fields, which come first in every row.
struct RowSet {
    RowSet(CollectedRows rows, std::vector<Column> shown)
        : collected(std::move(rows)), fields(std::move(shown)), places(fields) {}

    CollectedRows collected;
    std::vector<Column> fields;
    FieldPlaces places;
};

// Rows collected before. Those that memory did not hold are read again by their rowid.
class StoredRows final : public Recordset::Impl {
  public:
    using Selection = std::vector<std::uint32_t>;

    // All rows, or those of a selection (positions among the rows, which the caller keeps alive through
    // `rows`).
    StoredRows(std::shared_ptr<Connection> connection, std::shared_ptr<const RowSet> rows,
               const Selection* selection = nullptr)
        : Impl(std::move(connection)), m_rows(std::move(rows)), m_selection(selection) {}

    bool atEnd() override { return m_at >= size(); }
    void moveNext() override;
    long long count() override { return static_cast<long long>(size()); }
    Value field(Column column) override;

  private:
    [[nodiscard]] std::size_t size() const {
        return m_selection ? m_selection->size() : m_rows->collected.rows().size();
    }
    [[nodiscard]] const CollectedRows::Row& rowAt(std::size_t at) const {
        return m_rows->collected.rows()[m_selection ? (*m_selection)[at] : at];
    }
    void load();
    void readAgain();

    std::shared_ptr<const RowSet> m_rows;
    const Selection* m_selection;
    std::size_t m_at = 0;
    bool m_loaded = false;
    std::array<Value, columns.size()> m_values;
    RowStore m_again;  // the current row, when it was read again
};

}  // namespace engine
