#pragma once

#include <vector>

#include "engine/dialect/literals.h"
#include "engine/dialect/statement.h"

namespace engine {

// `U and A or U and B`, where U asks for the same units each time, as `U and (A or B)`; any other condition
// as it is. SQLite would go through the units' rows once for each part: the statistics of a unit took four
// times as long.
[[nodiscard]] Condition withUnitFirst(const Condition& condition, const std::vector<Literal>& literals);

}  // namespace engine
