#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "engine/dialect/literals.h"
#include "engine/dialect/statement.h"
#include "engine/format.h"
#include "engine/text/like_pattern.h"

namespace engine {

// A pattern of `like` on its way to a prepared statement, which compiles it once and keeps it.
struct PatternText {
    std::string_view text;
    LikePattern::Signs signs;
};

// That of a `like`. The program joins names into the patterns for `ruta`, and into those that hold no star.
[[nodiscard]] PatternText patternOf(const Condition& like, const std::vector<Literal>& literals);

// What is bound to one parameter. Texts are views into the literals or the unit names.
using BoundValue = std::variant<std::monostate, std::int64_t, double, std::string_view, PatternText>;

// A literal as a value of a column's type: text in a numeric column becomes its number, or null when it is
// none.
[[nodiscard]] BoundValue converted(const Literal& literal, bool negative, Type type, std::string& storage);

}  // namespace engine
