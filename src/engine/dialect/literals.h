#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/error.h"

namespace engine {

struct Literal {
    std::string_view text;  // of a text: its content; of a number: its digits
    bool isNumber = false;
};

// A statement with its literals lifted out: what is left is its shape, in which textMark and numberMark stand
// for them. Statements that differ in their literals only have the same shape.
struct LiftedStatement {
    static constexpr char textMark = '\1';
    static constexpr char numberMark = '\2';

    std::string shape;
    std::vector<Literal> literals;  // views into the statement or into `unescaped`
    std::list<std::string> unescaped;
};

// Lifts the literals of `sql`, which must outlive `out`. Fails on an unclosed quote, and on characters that
// no statement has outside quotes.
[[nodiscard]] Result<> liftLiterals(std::string_view sql, LiftedStatement& out);

// Where the word ends that begins at `at`, which may be there already.
[[nodiscard]] std::size_t endOfWord(std::string_view sql, std::size_t at);

// The number that a text stands for: a point or a comma as decimal sign, blanks around it skipped.
[[nodiscard]] std::optional<double> numberOf(std::string_view text);

[[nodiscard]] Error syntaxError(std::string_view near);

}  // namespace engine
