#include "engine/dialect/literals.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

// What is lifted, with ? for a text and # for a number in the shape; "error" when it is refused.
std::string lifted(const std::string& sql) {
    engine::LiftedStatement out;
    if (!engine::liftLiterals(sql, out)) return "error";
    std::string text = out.shape;
    std::ranges::replace(text, engine::LiftedStatement::textMark, '?');
    std::ranges::replace(text, engine::LiftedStatement::numberMark, '#');
    for (const engine::Literal& literal : out.literals) text.append(" | ").append(literal.text);
    return text;
}

TEST(Literals, AreTakenOutOfTheStatement) {
    const std::pair<const char*, const char*> cases[]{
        {"values (1,'a')", "values (#,?) | 1 | a"},
        {"values ('x\"y',-2.5e3)", "values (?,-#) | x\"y | 2.5e3"},
        {"a1,.5)", "a1,#) | .5"},
        {"'it''s',\"\"", "?,? | it's | "},
        {"'open", "error"},
        {"\u00e9)", "error"},
        {"where nivel1'1' or x>-1.5e2", "where nivel1? or x>-# | 1 | 1.5e2"},
        {"", ""}};
    for (const auto& [sql, expected] : cases) EXPECT_EQ(lifted(sql), expected);
}

TEST(Literals, NumbersHaveOnePointOrComma) {
    EXPECT_EQ(engine::numberOf(" 38123,5 "), 38123.5);
    EXPECT_FALSE(engine::numberOf("1,2,3"));
    EXPECT_FALSE(engine::numberOf("x"));
}

}  // namespace
