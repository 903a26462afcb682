#pragma once

#include <string_view>

#include "engine/dialect/statement.h"
#include "engine/error.h"

namespace engine {

// Parses a shape (see LiftedStatement). Accepts select, insert, update and delete on `datos` and nothing
// else; what the dialect's engine would refuse is refused here:
//   syntaxInExpression  words out of place, text behind the end
//   unknownName         a name that is no column
//   unknownTable        a table other than `datos`
[[nodiscard]] Result<Statement> parseShape(std::string_view shape);

}  // namespace engine
