#include "engine/dialect/tokens.h"

#include "engine/dialect/literals.h"

namespace engine {

namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view signs = "()=<>,*;-";

std::size_t endOfSign(std::string_view shape, std::size_t at) {
    const std::string_view two = shape.substr(at, 2);
    return two == "<>" || two == "<=" || two == ">=" ? at + 2 : at + 1;
}

std::size_t endOfShapeWord(std::string_view shape, std::size_t at) {
    const auto endsWord = [&](char c) {
        return blanks.find(c) != blanks.npos || signs.find(c) != signs.npos ||
               c == LiftedStatement::textMark || c == LiftedStatement::numberMark;
    };
    while (at < shape.size() && !endsWord(shape[at])) ++at;
    return at;
}

}  // namespace

std::vector<Token> tokensOf(std::string_view shape) {
    std::vector<Token> tokens;
    int literals = 0;
    for (std::size_t at = 0; at < shape.size();) {
        const char c = shape[at];
        const std::size_t begin = at;
        if (blanks.find(c) != blanks.npos) {
            ++at;
        } else if (c == LiftedStatement::textMark || c == LiftedStatement::numberMark) {
            const auto kind = c == LiftedStatement::textMark ? Token::Text : Token::Number;
            tokens.push_back({kind, shape.substr(at++, 1), literals++});
        } else if (signs.find(c) != signs.npos) {
            at = endOfSign(shape, at);
            tokens.push_back({Token::Sign, shape.substr(begin, at - begin)});
        } else {
            at = endOfShapeWord(shape, at);
            tokens.push_back({Token::Word, shape.substr(begin, at - begin)});
        }
    }
    tokens.push_back({Token::End, {}});
    return tokens;
}

}  // namespace engine
