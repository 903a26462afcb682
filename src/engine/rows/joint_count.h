#pragma once

#include <span>
#include <vector>

#include "engine/dialect/query.h"
#include "engine/error.h"
#include "engine/rows/unit_list.h"

namespace engine {

// The record counts of selects that group nothing, in one pass over the rows for all of them.
[[nodiscard]] Result<std::vector<long long>> countTogether(Connection& connection, UnitList& units,
                                                           std::span<const Query> selects);

}  // namespace engine
