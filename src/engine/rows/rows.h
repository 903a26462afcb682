#pragma once

#include <array>
#include <optional>
#include <span>

#include "engine/dialect/statement.h"
#include "engine/error.h"
#include "engine/value.h"

namespace engine {

// The rows of a select, walked forward once. Cursor takes them from SQLite one by one, TableRows from a table
// of kept rows, RowRuns from sorted runs on the disk.
class Rows {
  public:
    virtual ~Rows() = default;

    [[nodiscard]] virtual bool atEnd() const = 0;
    [[nodiscard]] virtual Result<> moveNext() = 0;         // not called at the end
    [[nodiscard]] virtual Value field(Column column) = 0;  // nor is this; the value holds until moveNext
    [[nodiscard]] virtual std::optional<long long> count() const = 0;  // of all rows, where that is known
};

// Where a column stands among a select's fields.
class FieldPlaces {
  public:
    explicit FieldPlaces(std::span<const Column> fields) {
        m_places.fill(-1);
        for (std::size_t i = 0; i < fields.size(); ++i)
            m_places[static_cast<std::size_t>(fields[i])] = static_cast<int>(i);
    }
    // -1 for a column that is none of them.
    [[nodiscard]] int operator[](Column column) const { return m_places[static_cast<std::size_t>(column)]; }

  private:
    std::array<int, columns.size()> m_places;
};

}  // namespace engine
