#include "engine/dialect/sql_writer.h"

#include <algorithm>
#include <utility>

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

// True for a condition on `disco` alone, compared with literals: the census knows the units that meet it.
bool isUnitCondition(const Condition& condition) {
    const auto isText = [](const Operand& operand) { return operand.kind == Operand::Text; };
    const auto& operands = condition.operands;
    return operands.size() > 1 && operands.front().kind == Operand::Field &&
           operands.front().column == Column::disco &&
           std::all_of(operands.begin() + 1, operands.end(), isText);
}

bool compares(const Condition& condition, Column column) {
    return std::any_of(condition.operands.begin(), condition.operands.end(),
                       [column](const Operand& operand) {
                           return operand.kind == Operand::Field && operand.column == column;
                       });
}

// `nivel` holds digits, for which every order of texts is the same; without a collation the index serves it.
std::string_view collationOf(const Condition& condition) {
    if (typeOf(condition) != Type::Text || compares(condition, Column::nivel)) return "";
    switch (condition.kind) {
        case Condition::Equal:
        case Condition::Unequal:
        case Condition::In:
            return " collate engine_folded";
        default:
            return " collate engine_sorted";
    }
}

// What testing a row takes: the dearer tests stand behind. A pass over rows is mostly one over the rows of
// the unit asked for, so that its test decides little.
enum class Cost { Bytes, Unit, Collation, Pattern };

Cost costOf(const Condition& condition) {
    if (isUnitCondition(condition)) return Cost::Unit;
    if (condition.kind == Condition::Like) return Cost::Pattern;
    Cost cost = collationOf(condition).empty() ? Cost::Bytes : Cost::Collation;
    for (const Condition& child : condition.children) cost = std::max(cost, costOf(child));
    return cost;
}

}  // namespace

void SqlWriter::writeValue(const BoundValue& value) {
    m_sql += '?';
    m_values.push_back(value);
}

void SqlWriter::writeOperand(const Operand& operand, Type type) {
    switch (operand.kind) {
        case Operand::Field:
            m_sql += info(operand.column).name;
            break;
        case Operand::Null:
            m_sql += "null";
            break;
        case Operand::Text:
        case Operand::Number:
            // A fraction compared with whole numbers stays one.
            if (type == Type::Integer) type = Type::Real;
            writeValue(
                converted(m_literals[operand.literal], operand.negative, type, m_storage.emplace_back()));
            break;
    }
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
            return isUnitCondition(condition) ? writeUnits(condition) : writeTest(condition);
    }
}

void SqlWriter::writeTest(const Condition& condition) {
    const auto& operands = condition.operands;
    const Type type = typeOf(condition);
    if (condition.kind == Condition::Like) {
        m_sql += "engine_like(";
        writeOperand(operands[0], Type::Text);
        m_sql += ", ";
        writeValue(PatternText{m_literals[operands[1].literal].text});
        m_sql += ')';
        return;
    }
    writeOperand(operands[0], type);
    m_sql += collationOf(condition);
    switch (condition.kind) {
        case Condition::Equal:
            m_sql += " = ";
            break;
        case Condition::Unequal:
            m_sql += " <> ";
            break;
        case Condition::Less:
            m_sql += " < ";
            break;
        case Condition::LessOrEqual:
            m_sql += " <= ";
            break;
        case Condition::Greater:
            m_sql += " > ";
            break;
        case Condition::GreaterOrEqual:
            m_sql += " >= ";
            break;
        case Condition::Between:
            m_sql += " between ";
            break;
        case Condition::In:
            m_sql += " in (";
            break;
        default:
            m_sql += " is null";
            return;
    }
    const std::string_view separator = condition.kind == Condition::Between ? " and " : ", ";
    for (std::size_t i = 1; i < operands.size(); ++i) {
        if (i > 1) m_sql += separator;
        writeOperand(operands[i], type);
    }
    if (condition.kind == Condition::In) m_sql += ')';
}

// `disco` meets the condition when it is one of the spellings that do. A null meets none.
void SqlWriter::writeUnits(const Condition& condition) {
    Condition listed = condition;
    const bool excluded = condition.kind == Condition::Unequal;
    if (excluded) listed.kind = Condition::Equal;
    std::vector<BoundValue> names;
    for (const Census::Unit& unit : m_census.units()) {
        KnownTexts known;
        known.set(Column::disco, unit.name);
        if (decide(listed, known, m_literals) == Truth::Yes) names.emplace_back(std::string_view(*unit.name));
    }
    if (names.size() <= 1) {
        m_sql += excluded ? "disco <> " : "disco = ";
        return writeValue(names.empty() ? NoSuchValue{} : names.front());
    }
    m_sql += excluded ? "disco not in (" : "disco in (";
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) m_sql += ", ";
        writeValue(names[i]);
    }
    m_sql += ')';
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
    writeCondition(*statement.where);
}

void SqlWriter::writeWhere(const Statement& statement, std::int64_t firstRow, std::int64_t lastRow) {
    m_sql += " where rowid between ";
    writeValue(firstRow);
    m_sql += " and ";
    writeValue(lastRow);
    if (!statement.where) return;
    m_sql += " and ";
    writeCondition(*statement.where);
}

void SqlWriter::writeGroupAndOrder(const Statement& statement) {
    if (statement.groupBy.empty()) return;
    m_sql += " group by ";
    writeFields(statement.groupBy);
    if (statement.orderBy.empty()) return;
    m_sql += " order by ";
    for (const Ordering& ordering : statement.orderBy) {
        m_sql += info(ordering.column).name;
        if (info(ordering.column).type == Type::Text) m_sql += " collate engine_sorted";
        m_sql += ordering.descending ? " desc, " : ", ";
    }
    writeFields(statement.groupBy);  // spellings apart only in case
}

void SqlWriter::writeAssignments(const Statement& statement) {
    if (statement.kind != Statement::Update) return;
    m_sql += " set ";
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
        const auto& [column, value] = statement.assignments[i];
        if (i > 0) m_sql += ", ";
        m_sql += info(column).name;
        m_sql += " = ";
        if (value.kind == Operand::Text || value.kind == Operand::Number) {
            writeValue(converted(m_literals[value.literal], value.negative, info(column).type,
                                 m_storage.emplace_back()));
        } else {
            writeOperand(value, info(column).type);
        }
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
