#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/jet/bound_value.h"
#include "platform/jet/literals.h"
#include "platform/jet/statement.h"
#include "platform/jet/units.h"

namespace jet {

// Puts a parsed statement and its literals into SQLite's words: text with a parameter for each value. No literal
// ever becomes part of the text.
class SqlWriter {
  public:
    SqlWriter(const std::vector<Literal>& literals, Units& units) : m_literals(literals), m_units(units) {}

    void write(std::string_view sql) { m_sql += sql; }
    void writeFields(const std::vector<Column>& fields);
    void writeCondition(const Condition& condition);
    void writeWhere(const Statement& statement);      // " where ..." or nothing
    void writeOrder(const Statement& statement);      // " order by ...", ties by rowid
    void writeAssignments(const Statement& statement);  // of an update
    void writeInsert(const Statement& statement);

    [[nodiscard]] const std::string& sql() const { return m_sql; }
    [[nodiscard]] const std::vector<BoundValue>& values() const { return m_values; }

  private:
    void writeJoined(const Condition& condition, std::string_view word);
    void writeComparison(const Condition& condition, std::string_view sign);
    void writeUnits(const Condition& condition);
    void writeOperand(const Operand& operand, Type type);
    void writeValue(const BoundValue& value);

    const std::vector<Literal>& m_literals;
    Units& m_units;
    std::string m_sql;
    std::vector<BoundValue> m_values;
    std::deque<std::string> m_storage;  // for values that no literal holds as they are
};

}  // namespace jet
