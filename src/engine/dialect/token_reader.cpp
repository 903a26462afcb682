#include "engine/dialect/token_reader.h"

#include <algorithm>
#include <string>

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
