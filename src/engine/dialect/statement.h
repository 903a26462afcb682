#pragma once

#include <optional>
#include <vector>

#include "engine/format.h"

namespace engine {

// The parsed shape of a statement. Literals are known by their number in the statement, from 0.

struct Operand {
    enum Kind { Field, Text, Number, Null };
    Kind kind = Null;
    Column column = Column::numero;  // of a Field
    int literal = -1;                // of a Text or Number
    bool negative = false;           // of a Number: a minus stood before it
    bool operator==(const Operand&) const = default;
};

// A negated test (`not like`, `is not null`...) is a Not around the positive one; only `<>` has a kind of its
// own.
struct Condition {
    enum Kind {
        And,
        Or,
        Not,
        Equal,
        Unequal,
        Less,
        LessOrEqual,
        Greater,
        GreaterOrEqual,
        Like,
        Between,
        In,
        IsNull
    };
    Kind kind = And;
    std::vector<Condition> children;  // of And, Or (two or more) and Not (one)
    std::vector<Operand> operands;    // of the others: the tested one, then what it is compared with
    bool operator==(const Condition&) const = default;
};

struct Assignment {
    Column column;
    Operand value;
    bool operator==(const Assignment&) const = default;
};

struct Ordering {
    Column column;
    bool descending = false;
    bool operator==(const Ordering&) const = default;
};

struct Statement {
    enum Kind { Select, Insert, Update, Delete };
    Kind kind = Select;
    std::vector<Column> fields;           // of a Select
    std::vector<Assignment> assignments;  // of an Insert or Update
    std::optional<Condition> where;
    std::vector<Column> groupBy;
    std::vector<Ordering> orderBy;
    bool operator==(const Statement&) const = default;
};

}  // namespace engine
