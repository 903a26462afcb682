#include "engine/dialect/unit_names.h"

#include <algorithm>

#include "engine/dialect/bound_value.h"
#include "engine/text/folding.h"

namespace engine {

void UnitNames::add(const std::string& name) {
    m_spellings.emplace(folded(name), name);
}

bool UnitNames::decide(const Condition& condition) {
    constexpr Condition::Kind kinds[]{Condition::Equal, Condition::Unequal, Condition::In, Condition::Like};
    const auto isText = [](const Operand& operand) { return operand.kind == Operand::Text; };
    const auto& operands = condition.operands;
    return std::ranges::find(kinds, condition.kind) != std::end(kinds) &&
           operands.front().kind == Operand::Field && operands.front().column == Column::disco &&
           std::all_of(operands.begin() + 1, operands.end(), isText);
}

bool UnitNames::areAskedBy(const Condition& condition) {
    return decide(condition) || std::ranges::any_of(condition.children, areAskedBy);
}

std::vector<std::string_view> UnitNames::named(const Condition& condition,
                                               const std::vector<Literal>& literals) const {
    std::vector<std::string_view> names;
    if (condition.kind == Condition::Like) {
        const auto [text, signs] = patternOf(condition, literals);
        const LikePattern pattern(text, signs);
        for (const auto& [foldedName, name] : m_spellings)
            if (pattern.matches(name)) names.push_back(name);
        return names;
    }
    for (std::size_t i = 1; i < condition.operands.size(); ++i) {
        const auto [begin, end] =
            m_spellings.equal_range(folded(literals[condition.operands[i].literal].text));
        for (auto spelling = begin; spelling != end; ++spelling) names.push_back(spelling->second);
    }
    return names;
}

}  // namespace engine
