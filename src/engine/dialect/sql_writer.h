#pragma once

#include <deque>
#include <string>
#include <vector>

#include "engine/dialect/bound_value.h"
#include "engine/dialect/literals.h"
#include "engine/dialect/statement.h"
#include "engine/dialect/unit_names.h"

namespace engine {

// Puts a parsed statement and its literals into SQLite's words: text with a parameter for each value. No
// literal ever becomes part of the text.
class SqlWriter {
  public:
    SqlWriter() = default;
    SqlWriter(const std::vector<Literal>& literals, const UnitNames& units) { turnTo(literals, units); }

    // From here on it writes conditions of the statement with these literals.
    void turnTo(const std::vector<Literal>& literals, const UnitNames& units) {
        m_literals = &literals;
        m_units = &units;
    }

    SqlWriter& write(std::string_view sql) {
        m_sql += sql;
        return *this;
    }
    void writeFields(const std::vector<Column>& fields);
    void writeCondition(const Condition& condition);
    void writeWhere(const Statement& statement);                     // " where ..." or nothing
    void writeStretch(std::int64_t firstRow, std::int64_t lastRow);  // of rowids, behind a where
    void writeGroupBy(const Statement& statement);
    void writeOrderBy(const Statement& statement);
    void writeAssignments(const Statement& statement);  // " set ..." of an update
    void writeInsert(const Statement& statement);

    [[nodiscard]] const std::string& sql() const { return m_sql; }
    [[nodiscard]] const std::vector<BoundValue>& values() const { return m_values; }

  private:
    void writeJoined(const Condition& condition, std::string_view word);
    [[nodiscard]] bool writeUnits(const Condition& condition);
    void writeTest(const Condition& condition);
    void writeLike(const Condition& condition);
    void writeCompared(const Condition& condition, const Operand& operand);
    void writeOperand(const Operand& operand, Type type);
    void writeValue(const BoundValue& value);

    const std::vector<Literal>* m_literals = nullptr;
    const UnitNames* m_units = nullptr;
    std::string m_sql;
    std::vector<BoundValue> m_values;
    std::deque<std::string> m_storage;  // for values that no literal holds as they are
};

}  // namespace engine
