#include "engine/dialect/token_reader.h"

#include <algorithm>
#include <string>

#include "engine/dialect/literals.h"

namespace engine {

namespace {

// The reserved words that cannot be names.
constexpr std::string_view reserved[] = {
    "select", "insert", "update", "delete", "from", "into", "values", "set",  "where",   "group", "order",
    "by",     "and",    "or",     "not",    "like", "in",   "is",     "null", "between", "asc",   "desc"};

bool isReserved(std::string_view word) {
    return std::any_of(std::begin(reserved), std::end(reserved),
                       [word](std::string_view one) { return equalFolded(one, word); });
}

}  // namespace

TokenReader::TokenReader(std::string_view shape) {
    constexpr std::string_view blanks = " \t\r\n";
    int literals = 0;
    for (std::size_t at = 0; (at = shape.find_first_not_of(blanks, at)) != shape.npos;
         at += m_tokens.back().text.size()) {
        const std::string_view two = shape.substr(at, 2);
        if (const std::size_t end = endOfWord(shape, at); end > at)
            m_tokens.push_back({Token::Word, shape.substr(at, end - at)});
        else if (shape[at] == LiftedStatement::textMark)
            m_tokens.push_back({Token::Text, shape.substr(at, 1), literals++});
        else if (shape[at] == LiftedStatement::numberMark)
            m_tokens.push_back({Token::Number, shape.substr(at, 1), literals++});
        else
            m_tokens.push_back(
                {Token::Sign, two == "<>" || two == "<=" || two == ">=" ? two : shape.substr(at, 1)});
    }
    m_tokens.push_back({Token::End, {}});
}

bool TokenReader::atName() const {
    return token().kind == Token::Word && !isReserved(token().text);
}

bool TokenReader::takeColumn(Column& column) {
    if (!atName()) return false;
    if (const auto known = columnNamed(token().text)) {
        column = *known;
    } else if (unknown.number == 0) {
        unknown = {error::unknownName, "There is no column " + std::string(token().text)};
    }
    return advance();
}

}  // namespace engine
