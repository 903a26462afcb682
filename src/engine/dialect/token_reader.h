#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "engine/error.h"
#include "engine/format.h"
#include "engine/text/folding.h"

namespace engine {

struct Token {
    enum Kind { Word, Text, Number, Sign, End };
    Kind kind;
    std::string_view text;  // a view into the shape; empty at the end
    int literal = -1;       // of a Text or Number: which literal of the statement
};

// What every part of the parser reads with: the tokens of a shape, taken one by one. What is not there is not
// taken, and gives false.
class TokenReader {
  public:
    explicit TokenReader(std::string_view shape);

    [[nodiscard]] const Token& token(std::size_t ahead = 0) const { return m_tokens[m_at + ahead]; }
    [[nodiscard]] bool atSign(std::string_view sign) const {
        return token().kind == Token::Sign && token().text == sign;
    }
    [[nodiscard]] bool atName() const;  // a word that is not reserved
    bool takeWord(std::string_view word) { return atWord(word) && advance(); }
    bool takeSign(std::string_view sign) { return atSign(sign) && advance(); }
    bool advance() {
        ++m_at;
        return true;
    }

    // A name that is no column is told only when the whole statement is sound otherwise.
    bool takeColumn(Column& column);

    // Items with commas between them.
    template <class Item, class Parse>
    bool takeList(std::vector<Item>& list, Parse parseItem) {
        do {
            Item item{};
            if (!parseItem(item)) return false;
            list.push_back(std::move(item));
        } while (takeSign(","));
        return true;
    }

    // How deep parentheses and negations may nest.
    bool enter() { return ++m_depth <= deepestNesting; }
    void leave() { --m_depth; }

    // What a statement whose words are in place asks for in vain; number 0 for nothing.
    Error unknown{0, {}};

  private:
    [[nodiscard]] bool atWord(std::string_view word) const {
        return token().kind == Token::Word && equalFolded(token().text, word);
    }

    static constexpr int deepestNesting = 64;
    std::vector<Token> m_tokens;  // the last one is always End
    std::size_t m_at = 0;
    int m_depth = 0;
};

}  // namespace engine
