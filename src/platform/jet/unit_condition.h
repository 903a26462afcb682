#pragma once

#include <string_view>
#include <vector>

#include "platform/jet/literals.h"
#include "platform/jet/statement.h"

namespace jet {

// True for a condition on `disco` alone, compared with literals.
[[nodiscard]] bool isUnitCondition(const Condition& condition);

// Whether a unit's name meets such a condition.
[[nodiscard]] bool unitMeets(const Condition& condition, std::string_view name, const std::vector<Literal>& literals);

}  // namespace jet
