#pragma once

#include "engine/dialect/statement.h"
#include "engine/dialect/token_reader.h"

namespace engine {

// Parse what stands behind `where`, and a value. Recursive descent: after the first mistake everything fails.
[[nodiscard]] bool parseCondition(TokenReader& in, Condition& out);
[[nodiscard]] bool parseValue(TokenReader& in, Operand& out);

}  // namespace engine
