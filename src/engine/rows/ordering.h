#pragma once

#include <string>
#include <vector>

#include "engine/dialect/statement.h"
#include "engine/file/prepared.h"

namespace engine {

// The key of `order by` for a row: keys compare byte by byte as their rows sort. `places` are the columns of
// `row` in which the ordered ones stand. Nulls come first.
[[nodiscard]] Result<> appendOrderKey(std::string& key, const std::vector<Ordering>& orderBy,
                                      const Prepared& row, const std::vector<int>& places);

}  // namespace engine
