#pragma once

#include <string_view>

#include "engine/dialect/statement.h"
#include "engine/error.h"

namespace engine {

// Parses a shape (see LiftedStatement):
//
// clang-format off: a table
//   statement  = (select | insert | update | delete) {";"}
//   select     = "select" ("*" | columns) "from" table [where] ["group" "by" columns]
//                ["order" "by" order {"," order}]
//   insert     = "insert" "into" table "(" columns ")" "values" "(" value {"," value} ")"
//   update     = "update" table "set" column "=" value {"," column "=" value} [where]
//   delete     = "delete" ["*"] "from" table [where]
//   where      = "where" condition
//   condition  = all {"or" all}
//   all        = one {"and" one}
//   one        = "not" one | "(" condition ")" | value test
//   test       = ("=" | "<>" | "<" | "<=" | ">" | ">=") value | "is" ["not"] "null" | ["not"] wordTest
//   wordTest   = "like" TEXT | "in" "(" value {"," value} ")" | "between" value "and" value
//   value      = "(" value ")" | column | TEXT | ["-"] NUMBER | "null"
//   order      = column ["asc" | "desc"]
//   columns    = column {"," column}
// clang-format on
//
// Words take no notice of case. A select's fields must be among the columns that it groups by; an insert has
// as many values as columns. Nothing else is accepted:
//   syntaxInExpression  words out of place, text behind the end
//   unknownName         a name that is no column
//   unknownTable        a table other than `datos`
[[nodiscard]] Result<Statement> parseShape(std::string_view shape);

}  // namespace engine
