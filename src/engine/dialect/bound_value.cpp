#include "engine/dialect/bound_value.h"

#include <cmath>

namespace engine {

namespace {

BoundValue integerValue(double number) {
    constexpr double limit = 9.2e18;
    if (std::abs(number) > limit) return {};
    return static_cast<std::int64_t>(std::nearbyint(number));  // a tie goes to the even neighbour
}

}  // namespace

PatternText patternOf(const Condition& like, const std::vector<Literal>& literals) {
    const Operand& tested = like.operands[0];
    const std::string_view text = literals[like.operands[1].literal].text;
    const bool isPath = tested.kind == Operand::Field && tested.column == Column::ruta;
    return {text, isPath || text.find('*') == text.npos ? LikePattern::Signs::WildcardsOrThemselves
                                                        : LikePattern::Signs::Wildcards};
}

BoundValue converted(const Literal& literal, bool negative, Type type, std::string& storage) {
    if (type == Type::Text) {
        if (!negative) return literal.text;
        storage = '-';
        storage += literal.text;
        return std::string_view(storage);
    }
    const auto number = numberOf(literal.text);
    if (!number) return {};
    const double value = negative ? -*number : *number;
    return type == Type::Integer ? integerValue(value) : BoundValue(value);
}

}  // namespace engine
