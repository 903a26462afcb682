#include "engine/dialect/unit_first.h"

#include <algorithm>
#include <optional>

#include "engine/dialect/unit_names.h"

namespace engine {

namespace {

bool areAlike(const Condition& a, const Condition& b, const std::vector<Literal>& literals) {
    const auto text = [&](const Operand& operand) {
        return operand.kind == Operand::Text ? literals[operand.literal].text : std::string_view();
    };
    return a.kind == b.kind && std::ranges::equal(a.operands, b.operands, {}, text, text);
}

// A part of an `or` without its test of the units; nothing where it has no other.
std::optional<Condition> without(const Condition& part, const Condition& unit,
                                 const std::vector<Literal>& literals) {
    if (part.kind != Condition::And) return std::nullopt;
    Condition rest = part;
    const auto isUnit = [&](const Condition& test) {
        return UnitNames::decide(test) && areAlike(test, unit, literals);
    };
    if (std::erase_if(rest.children, isUnit) == 0 || rest.children.empty()) return std::nullopt;
    if (rest.children.size() > 1) return rest;
    return Condition(rest.children.front());
}

}  // namespace

Condition withUnitFirst(const Condition& condition, const std::vector<Literal>& literals) {
    if (condition.kind != Condition::Or) return condition;
    const auto& tests = condition.children.front().children;
    const auto unit = std::ranges::find_if(tests, UnitNames::decide);
    if (unit == tests.end()) return condition;
    Condition rests{Condition::Or, {}, {}};
    for (const Condition& part : condition.children) {
        auto rest = without(part, *unit, literals);
        if (!rest) return condition;
        rests.children.push_back(std::move(*rest));
    }
    return {Condition::And, {*unit, std::move(rests)}, {}};
}

}  // namespace engine
