#include "engine/rows/change.h"

#include <sqlite3.h>

namespace engine {

namespace {

class UndoneUnlessCommitted {
  public:
    explicit UndoneUnlessCommitted(Connection& connection) : m_connection(connection) {}
    ~UndoneUnlessCommitted() { m_connection.rollBack(); }
    UndoneUnlessCommitted(const UndoneUnlessCommitted&) = delete;
    UndoneUnlessCommitted& operator=(const UndoneUnlessCommitted&) = delete;

  private:
    Connection& m_connection;
};

}  // namespace

Result<long long> Changes::run(const std::shared_ptr<const Statement>& statement,
                               const std::vector<Literal>& literals) {
    return statement->kind == Statement::Insert ? insert(statement, literals) : change(*statement, literals);
}

// The names of units that a statement asks for must be those of the rows that it changes.
Result<long long> Changes::change(const Statement& statement, const std::vector<Literal>& literals) {
    const bool asksForUnits = statement.where && UnitNames::areAskedBy(*statement.where);
    if (!asksForUnits || sqlite3_get_autocommit(m_connection.handle()) == 0)
        return changeAtOnce(statement, literals);
    TRY(m_connection.run("begin immediate"));
    const UndoneUnlessCommitted transaction(m_connection);
    const long long changed = TRY(changeAtOnce(statement, literals));
    TRY(m_connection.commit());
    return changed;
}

Result<long long> Changes::changeAtOnce(const Statement& statement, const std::vector<Literal>& literals) {
    SqlWriter writer(literals, *TRY(m_units.namesFor(statement)));
    writer.write(statement.kind == Statement::Update ? "update datos" : "delete from datos");
    writer.writeAssignments(statement);
    writer.writeWhere(statement);
    auto prepared = TRY(m_connection.prepare(writer.sql()));
    prepared.bind(writer.values(), Prepared::Texts::Lent);
    return runPrepared(prepared);
}

Result<long long> Changes::insert(const std::shared_ptr<const Statement>& statement,
                                  const std::vector<Literal>& literals) {
    if (m_lastInsert != statement) {
        static const UnitNames none;
        SqlWriter writer(literals, none);
        writer.writeInsert(*statement);
        m_lastInsertSql = writer.sql();
        m_lastInsert = statement;
    }
    const auto& assignments = statement->assignments;
    m_values.clear();
    m_storage.resize(assignments.size());
    for (std::size_t i = 0; i < assignments.size(); ++i) {
        const auto& [column, value] = assignments[i];
        const bool isLiteral = value.kind == Operand::Text || value.kind == Operand::Number;
        m_values.push_back(
            isLiteral ? converted(literals[value.literal], value.negative, info(column).type, m_storage[i])
                      : BoundValue());
    }
    auto prepared = TRY(m_connection.prepare(m_lastInsertSql));
    prepared.bind(m_values, Prepared::Texts::Lent);
    return runPrepared(prepared);
}

Result<long long> Changes::runPrepared(Prepared& prepared) {
    m_connection.noteWrite();
    TRY(prepared.run());
    return sqlite3_changes64(m_connection.handle());
}

}  // namespace engine
