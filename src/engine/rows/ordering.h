#pragma once

#include <string>
#include <vector>

#include "engine/dialect/statement.h"
#include "engine/file/prepared.h"

namespace engine {

// The key of `order by` for a row: keys compare byte by byte as their rows sort. The ordered columns are the
// columns of `row` from `first` on. Nulls come first.
[[nodiscard]] Result<> appendOrderKey(std::string& key, const std::vector<Ordering>& orderBy,
                                      const Prepared& row, int first);

}  // namespace engine
