#include "engine/dialect/literals.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Texts = std::vector<std::string>;

// The shape with ? for a text and # for a number, or "error", and the literals.
struct Lifted {
    std::string shape;
    Texts literals;
    bool operator==(const Lifted&) const = default;
};

Lifted lift(const std::string& sql, engine::LiftedStatement& out) {
    if (!engine::liftLiterals(sql, out)) return {"error", {}};
    Lifted lifted{out.shape, {}};
    for (char& c : lifted.shape) {
        if (c == engine::LiftedStatement::textMark) c = '?';
        if (c == engine::LiftedStatement::numberMark) c = '#';
    }
    for (const engine::Literal& literal : out.literals) lifted.literals.emplace_back(literal.text);
    return lifted;
}

struct Case {
    std::string sql;
    Lifted expected;
};

const std::string insert = "insert into datos (numero,ruta) values (";
const std::vector<Case> cases{
    {insert + "1,'a')", {insert + "#,?)", {"1", "a"}}},
    {insert + "'x\"y',-2.5e3)", {insert + "?,-#)", {"x\"y", "2.5e3"}}},
    {insert + "a1,.5)", {insert + "a1,#)", {".5"}}},
    {insert, {insert, {}}},
    {insert + "'it''s',\"\")", {insert + "?,?)", {"it's", ""}}},
    {insert + "'open", {"error", {}}},
    {insert + "\u00e9)", {"error", {}}},
    {"where nivel2='it''s' or x>-1.5e2 and \"q\"", {"where nivel2=? or x>-# and ?", {"it's", "1.5e2", "q"}}},
    {"where nivel='1'", {"where nivel=?", {"1"}}},
    {"where nivel1'1'", {"where nivel1?", {"1"}}},
    {"where nivel'1'", {"where nivel?", {"1"}}},
    {"where nivel2x", {"where nivel2x", {}}},
    {"''", {"?", {""}}},
    {"", {"", {}}},
};

// Lifting remembers how the last statement began, which must never show.
TEST(Literals, AreLiftedTheSameWhateverCameBefore) {
    for (const Case& before : cases) {
        for (const Case& now : cases) {
            engine::LiftedStatement out;
            static_cast<void>(lift(before.sql, out));
            EXPECT_EQ(lift(now.sql, out), now.expected) << before.sql << " then " << now.sql;
        }
    }
}

TEST(Literals, NumbersHaveOnePointOrComma) {
    EXPECT_EQ(engine::numberOf(" 38123,5 "), 38123.5);
    EXPECT_FALSE(engine::numberOf("1,2,3"));
    EXPECT_FALSE(engine::numberOf("x"));
}

}  // namespace
