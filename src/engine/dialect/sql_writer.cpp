#include "engine/dialect/sql_writer.h"

#include <algorithm>
#include <utility>

#include "engine/dialect/unit_first.h"

namespace engine {

namespace {

// The type that both sides of a comparison take: that of the first column in it.
Type typeOf(const Condition& condition) {
    for (const Operand& operand : condition.operands) {
        if (operand.kind == Operand::Field) return info(operand.column).type;
    }
    const auto& operands = condition.operands;
    const bool numbers = std::all_of(operands.begin(), operands.end(),
                                     [](const Operand& operand) { return operand.kind == Operand::Number; });
    return numbers ? Type::Real : Type::Text;
}

bool compares(const Condition& condition, Column column) {
    return std::any_of(condition.operands.begin(), condition.operands.end(),
                       [column](const Operand& operand) {
                           return operand.kind == Operand::Field && operand.column == column;
                       });
}

// How the two sides of a comparison are made to compare as texts of the dialect do: without regard to case,
// or by their place in the order. `nivel` holds digits, which need neither; as bytes the index serves them.
enum class Measure { Bytes, Folded, Sorted };

Measure measureOf(const Condition& condition) {
    if (typeOf(condition) != Type::Text || condition.kind == Condition::IsNull ||
        compares(condition, Column::nivel))
        return Measure::Bytes;
    const bool isEquality = condition.kind == Condition::Equal || condition.kind == Condition::Unequal ||
                            condition.kind == Condition::In;
    return isEquality ? Measure::Folded : Measure::Sorted;
}

// The words before, between and behind what the first operand is compared with.
struct Words {
    Condition::Kind kind;
    std::string_view before;
    std::string_view between = {};
    std::string_view behind = {};
};
constexpr Words comparisons[]{{Condition::Equal, " = "},
                              {Condition::Unequal, " <> "},
                              {Condition::Less, " < "},
                              {Condition::LessOrEqual, " <= "},
                              {Condition::Greater, " > "},
                              {Condition::GreaterOrEqual, " >= "},
                              {Condition::Between, " between ", " and "},
                              {Condition::In, " in (", ", ", ")"},
                              {Condition::IsNull, " is null"}};

// What testing a row takes: the dearer tests stand behind. A pass over rows is mostly one over the rows of
// the unit asked for, so that its test decides little.
enum class Cost { Bytes, Unit, Collation, Pattern };

Cost costOf(const Condition& condition) {
    if (UnitNames::decide(condition)) return Cost::Unit;
    if (condition.kind == Condition::Like) return Cost::Pattern;
    Cost cost = measureOf(condition) == Measure::Bytes ? Cost::Bytes : Cost::Collation;
    for (const Condition& child : condition.children) cost = std::max(cost, costOf(child));
    return cost;
}

}  // namespace

void SqlWriter::writeValue(const BoundValue& value) {
    m_sql += '?';
    m_values.push_back(value);
}

void SqlWriter::writeOperand(const Operand& operand, Type type) {
    if (operand.kind == Operand::Field)
        m_sql += info(operand.column).name;
    else if (operand.kind == Operand::Null)
        m_sql += "null";
    else
        writeValue(
            converted((*m_literals)[operand.literal], operand.negative, type, m_storage.emplace_back()));
}

void SqlWriter::writeJoined(const Condition& condition, std::string_view word) {
    m_sql += '(';
    bool first = true;
    for (const Cost cost : {Cost::Bytes, Cost::Unit, Cost::Collation, Cost::Pattern}) {
        for (const Condition& child : condition.children) {
            if (costOf(child) != cost) continue;
            if (!std::exchange(first, false)) m_sql += word;
            writeCondition(child);
        }
    }
    m_sql += ')';
}

void SqlWriter::writeCondition(const Condition& condition) {
    switch (condition.kind) {
        case Condition::And:
            return writeJoined(condition, " and ");
        case Condition::Or:
            return writeJoined(condition, " or ");
        case Condition::Not:
            m_sql += "not (";
            writeCondition(condition.children.front());
            m_sql += ')';
            return;
        default:
            if (!writeUnits(condition)) writeTest(condition);
    }
}

void SqlWriter::writeTest(const Condition& condition) {
    if (condition.kind == Condition::Like) return writeLike(condition);
    const auto& operands = condition.operands;
    const Words& words = *std::ranges::find(comparisons, condition.kind, &Words::kind);
    writeCompared(condition, operands.front());
    m_sql += words.before;
    for (std::size_t i = 1; i < operands.size(); ++i) {
        if (i > 1) m_sql += words.between;
        writeCompared(condition, operands[i]);
    }
    m_sql += words.behind;
}

void SqlWriter::writeLike(const Condition& condition) {
    m_sql += "engine_like(";
    writeOperand(condition.operands[0], Type::Text);
    m_sql += ", ";
    writeValue(patternOf(condition, *m_literals));
    m_sql += ')';
}

void SqlWriter::writeCompared(const Condition& condition, const Operand& operand) {
    const Measure measure = measureOf(condition);
    if (measure == Measure::Sorted) m_sql += "engine_sort_key(";
    const Type type = typeOf(condition);
    writeOperand(operand, type == Type::Integer ? Type::Real : type);  // a fraction stays one
    if (measure == Measure::Sorted) m_sql += ')';
    if (measure == Measure::Folded && &operand == &condition.operands.front())
        m_sql += " collate engine_folded";
}

// `disco` meets the condition when it is one of the spellings that do; x'00' stands for none, since nothing
// is `in ()`, but a null is `not in ()`. Nothing is written for another condition, and for one that more
// spellings meet than a statement should list.
bool SqlWriter::writeUnits(const Condition& condition) {
    constexpr std::size_t mostListed = 500;
    if (!UnitNames::decide(condition)) return false;
    const auto names = m_units->named(condition, *m_literals);
    if (names.size() > mostListed) return false;
    m_sql += condition.kind == Condition::Unequal ? "disco not in (" : "disco in (";
    if (names.empty()) m_sql += "x'00'";
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) m_sql += ", ";
        writeValue(names[i]);
    }
    m_sql += ')';
    return true;
}

void SqlWriter::writeFields(const std::vector<Column>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) m_sql += ", ";
        m_sql += info(fields[i]).name;
    }
}

void SqlWriter::writeWhere(const Statement& statement) {
    if (!statement.where) return;
    m_sql += " where ";
    writeCondition(withUnitFirst(*statement.where, *m_literals));
}

void SqlWriter::writeStretch(std::int64_t firstRow, std::int64_t lastRow) {
    m_sql += " and rowid between ";
    writeValue(firstRow);
    m_sql += " and ";
    writeValue(lastRow);
}

void SqlWriter::writeGroupBy(const Statement& statement) {
    if (statement.groupBy.empty()) return;
    m_sql += " group by ";
    writeFields(statement.groupBy);
}

void SqlWriter::writeOrderBy(const Statement& statement) {
    if (statement.orderBy.empty()) return;
    m_sql += " order by ";
    for (const auto& [column, descending] : statement.orderBy) {
        const bool isText = info(column).type == Type::Text;
        write(isText ? "engine_sort_key(" : "").write(info(column).name).write(isText ? ")" : "");
        m_sql += descending ? " desc, " : ", ";
    }
    // Spellings apart only in case, and rows that are equal in all that is asked for.
    if (statement.groupBy.empty())
        m_sql += "rowid";
    else
        writeFields(statement.groupBy);
}

void SqlWriter::writeAssignments(const Statement& statement) {
    if (statement.kind != Statement::Update) return;
    m_sql += " set ";
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
        const auto& [column, value] = statement.assignments[i];
        if (i > 0) m_sql += ", ";
        m_sql += info(column).name;
        m_sql += " = ";
        writeOperand(value, info(column).type);
    }
}

void SqlWriter::writeInsert(const Statement& statement) {
    m_sql += "insert into datos (";
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
        if (i > 0) m_sql += ", ";
        m_sql += info(statement.assignments[i].column).name;
    }
    m_sql += ") values (";
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) m_sql += i > 0 ? ", ?" : "?";
    m_sql += ')';
}

}  // namespace engine
