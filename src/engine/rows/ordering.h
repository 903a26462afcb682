#pragma once

#include <span>
#include <string>
#include <vector>

#include "engine/rows/rows.h"

namespace engine {

// What `order by` sorts rows by.
class RowOrder {
  public:
    // Of rows with those columns.
    RowOrder(std::vector<Ordering> orderBy, std::span<const Column> columns);

    // Appends a row's key: keys compare byte by byte as their rows sort. Nulls come first.
    [[nodiscard]] Result<> appendKey(std::string& key, std::span<const Value> row) const;

  private:
    std::vector<Ordering> m_orderBy;
    FieldPlaces m_places;
};

}  // namespace engine
