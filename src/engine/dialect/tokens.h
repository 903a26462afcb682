#pragma once

#include <string_view>
#include <vector>

namespace engine {

struct Token {
    enum Kind { Word, Text, Number, Sign, End };
    Kind kind;
    std::string_view text;  // a view into the shape; empty at the end
    int literal = -1;       // of a Text or Number: which literal of the statement
};

// The words, signs and literal marks of a shape; the last token is always End.
[[nodiscard]] std::vector<Token> tokensOf(std::string_view shape);

}  // namespace engine
