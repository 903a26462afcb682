#include "engine/dialect/condition_parser.h"

#include <utility>

namespace engine {

namespace {

Condition negated(Condition inner) {
    Condition outer{Condition::Not, {}, {}};
    outer.children.push_back(std::move(inner));
    return outer;
}

bool takeLiteral(TokenReader& in, Operand& out, Operand::Kind kind) {
    out.kind = kind;
    out.literal = in.token().literal;
    return in.advance();
}

bool parseIsNull(TokenReader& in, Condition& out) {
    out.kind = Condition::IsNull;
    const bool negative = in.takeWord("not");
    if (!in.takeWord("null")) return false;
    if (negative) out = negated(std::move(out));
    return true;
}

bool parseWordTest(TokenReader& in, Condition& out) {
    if (in.takeWord("like")) {
        out.kind = Condition::Like;
        return parseValue(in, out.operands.emplace_back()) && out.operands.back().kind == Operand::Text;
    }
    if (in.takeWord("between")) {
        out.kind = Condition::Between;
        return parseValue(in, out.operands.emplace_back()) && in.takeWord("and") &&
               parseValue(in, out.operands.emplace_back());
    }
    if (in.takeWord("in")) {
        out.kind = Condition::In;
        return in.takeSign("(") &&
               in.takeList(out.operands, [&](Operand& value) { return parseValue(in, value); }) &&
               in.takeSign(")");
    }
    return false;
}

bool parseTest(TokenReader& in, Condition& out) {
    static constexpr std::pair<std::string_view, Condition::Kind> comparisons[] = {
        {"=", Condition::Equal},        {"<>", Condition::Unequal}, {"<", Condition::Less},
        {"<=", Condition::LessOrEqual}, {">", Condition::Greater},  {">=", Condition::GreaterOrEqual}};
    for (const auto& [sign, kind] : comparisons) {
        if (!in.takeSign(sign)) continue;
        out.kind = kind;
        return parseValue(in, out.operands.emplace_back());
    }
    if (in.takeWord("is")) return parseIsNull(in, out);
    const bool negative = in.takeWord("not");
    if (!parseWordTest(in, out)) return false;
    if (negative) out = negated(std::move(out));
    return true;
}

// Whether the parentheses that open here enclose a mere value, as in `(disco) = ...`, or a condition.
bool parenthesesHoldValue(const TokenReader& in) {
    std::size_t at = 0;
    int open = 0;
    for (; in.token(at).text == "("; ++at) ++open;
    if (in.token(at).text == "-") ++at;
    if (in.token(at).kind == Token::End) return false;
    for (++at; in.token(at).text == ")"; ++at) --open;
    return open <= 0;
}

bool parsePredicate(TokenReader& in, Condition& out) {
    if (in.atSign("(") && !parenthesesHoldValue(in)) {
        if (!in.enter() || !in.advance() || !parseCondition(in, out) || !in.takeSign(")")) return false;
        in.leave();
        return true;
    }
    out.operands.resize(1);
    return parseValue(in, out.operands.front()) && parseTest(in, out);
}

bool parseNot(TokenReader& in, Condition& out) {
    if (!in.takeWord("not")) return parsePredicate(in, out);
    Condition inner;
    if (!in.enter() || !parseNot(in, inner)) return false;
    in.leave();
    out = negated(std::move(inner));
    return true;
}

bool parseJoined(TokenReader& in, Condition& out, Condition::Kind kind, std::string_view word,
                 bool (*parsePart)(TokenReader&, Condition&)) {
    std::vector<Condition> parts;
    do {
        if (!parsePart(in, parts.emplace_back())) return false;
    } while (in.takeWord(word));
    if (parts.size() == 1) {
        out = Condition(std::move(parts.front()));
    } else {
        out = {kind, std::move(parts), {}};
    }
    return true;
}

bool parseAnd(TokenReader& in, Condition& out) {
    return parseJoined(in, out, Condition::And, "and", parseNot);
}

}  // namespace

bool parseCondition(TokenReader& in, Condition& out) {
    return parseJoined(in, out, Condition::Or, "or", parseAnd);
}

bool parseValue(TokenReader& in, Operand& out) {
    if (in.takeSign("(")) {
        if (!in.enter() || !parseValue(in, out) || !in.takeSign(")")) return false;
        in.leave();
        return true;
    }
    out.negative = in.takeSign("-");
    switch (in.token().kind) {
        case Token::Number:
            return takeLiteral(in, out, Operand::Number);
        case Token::Text:
            return !out.negative && takeLiteral(in, out, Operand::Text);
        case Token::Word:
            break;
        default:
            return false;
    }
    if (out.negative) return false;
    if (in.takeWord("null")) {
        out.kind = Operand::Null;
        return true;
    }
    out.kind = Operand::Field;
    return in.takeColumn(out.column);
}

}  // namespace engine
