#include "platform/jet/unit_condition.h"

#include <algorithm>

#include "platform/jet/folding.h"
#include "platform/jet/like_pattern.h"
#include "platform/jet/sort_key.h"

namespace jet {

bool isUnitCondition(const Condition& condition) {
    if (condition.operands.size() < 2) return false;
    const Operand& tested = condition.operands.front();
    return tested.kind == Operand::Field && tested.column == Column::disco &&
           std::all_of(condition.operands.begin() + 1, condition.operands.end(),
                       [](const Operand& operand) { return operand.kind == Operand::Text; });
}

bool unitMeets(const Condition& condition, std::string_view name, const std::vector<Literal>& literals) {
    const auto literal = [&](std::size_t i) { return literals[condition.operands[i].literal].text; };
    switch (condition.kind) {
        case Condition::Equal: return equalFolded(name, literal(1));
        case Condition::Unequal: return !equalFolded(name, literal(1));
        case Condition::Less: return compareSorted(name, literal(1)) < 0;
        case Condition::LessOrEqual: return compareSorted(name, literal(1)) <= 0;
        case Condition::Greater: return compareSorted(name, literal(1)) > 0;
        case Condition::GreaterOrEqual: return compareSorted(name, literal(1)) >= 0;
        case Condition::Like: return LikePattern(literal(1)).matches(name);
        case Condition::Between:
            return compareSorted(name, literal(1)) >= 0 && compareSorted(name, literal(2)) <= 0;
        case Condition::In:
            for (std::size_t i = 1; i < condition.operands.size(); ++i) {
                if (equalFolded(name, literal(i))) return true;
            }
            return false;
        default: return false;
    }
}

}  // namespace jet
