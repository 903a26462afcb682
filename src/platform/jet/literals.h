#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/jet/error.h"

namespace jet {

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
    std::size_t beginning = 0;      // length of the shape before its first literal; 0 without one
    std::vector<Literal> literals;  // views into the statement or into `unescaped`
    std::deque<std::string> unescaped;
};

// Lifts the literals of `sql`, which must outlive `out`. Fails on an unclosed quote, and on characters that
// no statement has outside quotes.
[[nodiscard]] Result<> liftLiterals(std::string_view sql, LiftedStatement& out);

// The number that a text stands for: a point or a comma as decimal sign, blanks around it skipped.
[[nodiscard]] std::optional<double> numberOf(std::string_view text);

[[nodiscard]] Error syntaxError(std::string_view near);

}  // namespace jet
