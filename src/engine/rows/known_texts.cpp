#include "engine/rows/known_texts.h"

#include <algorithm>

#include "engine/text/folding.h"
#include "engine/text/like_pattern.h"
#include "engine/text/sort_key.h"

namespace engine {

namespace {

using View = std::optional<std::string_view>;

Truth truth(bool value) {
    return value ? Truth::Yes : Truth::No;
}

Truth negation(Truth value) {
    if (value == Truth::Null) return value;
    return truth(value == Truth::No);
}

// Comparisons of one test, with null as soon as one side is null.
class Test {
  public:
    Test(const Condition& condition, const KnownTexts& known, const std::vector<Literal>& literals)
        : m_condition(condition), m_known(known), m_literals(literals) {
        for (const Operand& operand : condition.operands) {
            m_isLevel = m_isLevel || (operand.kind == Operand::Field && operand.column == Column::nivel);
        }
    }

    [[nodiscard]] Truth run() const {
        switch (m_condition.kind) {
            case Condition::Equal:
                return equal(1);
            case Condition::Unequal:
                return negation(equal(1));
            case Condition::Less:
                return ordered(1, [](int order) { return order < 0; });
            case Condition::LessOrEqual:
                return ordered(1, [](int order) { return order <= 0; });
            case Condition::Greater:
                return ordered(1, [](int order) { return order > 0; });
            case Condition::GreaterOrEqual:
                return ordered(1, [](int order) { return order >= 0; });
            case Condition::Between:
                return std::min(ordered(1, [](int order) { return order >= 0; }),
                                ordered(2, [](int order) { return order <= 0; }));
            case Condition::Like:
                return text(0) ? truth(LikePattern(*text(1)).matches(*text(0))) : Truth::Null;
            case Condition::In:
                return in();
            case Condition::IsNull:
                return truth(!text(0));
            default:
                return Truth::Null;
        }
    }

  private:
    [[nodiscard]] View text(std::size_t i) const {
        const Operand& operand = m_condition.operands[i];
        switch (operand.kind) {
            case Operand::Field:
                return m_known[operand.column] ? View(*m_known[operand.column]) : View();
            case Operand::Null:
                return {};
            default:
                return m_literals[operand.literal].text;
        }
    }

    [[nodiscard]] Truth equal(std::size_t i) const {
        const View a = text(0);
        const View b = text(i);
        if (!a || !b) return Truth::Null;
        return truth(m_isLevel ? *a == *b : equalFolded(*a, *b));
    }

    template <class Wanted>
    [[nodiscard]] Truth ordered(std::size_t i, Wanted wanted) const {
        const View a = text(0);
        const View b = text(i);
        if (!a || !b) return Truth::Null;
        return truth(wanted(m_isLevel ? a->compare(*b) : compareSorted(*a, *b)));
    }

    [[nodiscard]] Truth in() const {
        Truth result = Truth::No;
        for (std::size_t i = 1; i < m_condition.operands.size(); ++i) result = std::max(result, equal(i));
        return result;
    }

    const Condition& m_condition;
    const KnownTexts& m_known;
    const std::vector<Literal>& m_literals;
    bool m_isLevel = false;
};

}  // namespace

bool isDecidable(const Condition& condition, const KnownTexts& known) {
    const auto& [kind, children, operands] = condition;
    if (!children.empty()) {
        return std::all_of(children.begin(), children.end(),
                           [&](const Condition& child) { return isDecidable(child, known); });
    }
    bool asksColumn = false;
    for (const Operand& operand : operands) {
        if (operand.kind == Operand::Field && !known.has(operand.column)) return false;
        if (operand.negative) return false;
        asksColumn = asksColumn || operand.kind == Operand::Field;
    }
    return asksColumn;
}

Truth decide(const Condition& condition, const KnownTexts& known, const std::vector<Literal>& literals) {
    const auto decided = [&](const Condition& child) { return decide(child, known, literals); };
    const auto& children = condition.children;
    switch (condition.kind) {
        case Condition::Not:
            return negation(decided(children.front()));
        case Condition::And: {
            Truth result = Truth::Yes;
            for (const Condition& child : children) result = std::min(result, decided(child));
            return result;
        }
        case Condition::Or: {
            Truth result = Truth::No;
            for (const Condition& child : children) result = std::max(result, decided(child));
            return result;
        }
        default:
            return Test(condition, known, literals).run();
    }
}

bool mayHold(const Condition& condition, const KnownTexts& known, const std::vector<Literal>& literals) {
    if (isDecidable(condition, known)) return decide(condition, known, literals) == Truth::Yes;
    const auto may = [&](const Condition& child) { return mayHold(child, known, literals); };
    const auto& children = condition.children;
    if (condition.kind == Condition::And) return std::all_of(children.begin(), children.end(), may);
    if (condition.kind == Condition::Or) return std::any_of(children.begin(), children.end(), may);
    return true;
}

}  // namespace engine
