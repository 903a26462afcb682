#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "engine/rows/row_table.h"
#include "engine/rows/rows.h"

namespace engine {

// The rows of a table, or a selection of them.
class TableRows final : public Rows {
  public:
    using Selection = std::vector<std::uint32_t>;  // positions among the rows

    // `shown` are the select's fields, the first ones of the table's. Without a selection all rows are shown.
    TableRows(std::shared_ptr<const RowTable> table, const std::vector<Column>& shown,
              std::shared_ptr<const Selection> selection = nullptr)
        : m_table(std::move(table)),
          m_selection(std::move(selection)),
          m_places(shown),
          m_shown(shown.size()) {}

    [[nodiscard]] bool atEnd() const override { return m_at >= size(); }
    [[nodiscard]] Result<> moveNext() override;
    [[nodiscard]] Value field(Column column) override;
    [[nodiscard]] std::optional<long long> count() const override { return static_cast<long long>(size()); }

  private:
    [[nodiscard]] std::size_t size() const { return m_selection ? m_selection->size() : m_table->size(); }
    [[nodiscard]] std::size_t rowAt(std::size_t at) const { return m_selection ? (*m_selection)[at] : at; }

    std::shared_ptr<const RowTable> m_table;
    std::shared_ptr<const Selection> m_selection;
    FieldPlaces m_places;
    std::size_t m_shown;
    std::size_t m_at = 0;
    bool m_isRead = false;
    std::array<Value, columns.size()> m_values;
};

}  // namespace engine
