#include "engine/rows/change.h"

#include <sqlite3.h>

#include "engine/rows/scratch_delete.h"

namespace engine {

Result<long long> Changes::run(const std::shared_ptr<const Statement>& statement,
                               const std::vector<Literal>& literals) {
    return statement->kind == Statement::Insert ? insert(statement, literals) : change(*statement, literals);
}

Result<long long> Changes::change(const Statement& statement, const std::vector<Literal>& literals) {
    if (auto current = m_census.refresh(); !current) return std::unexpected(current.error());
    const Scan scan{m_connection, m_census, statement, literals};
    if (statement.kind == Statement::Delete && m_connection.use() == Use::Scratch) {
        if (const auto deleted = deleteAllButOneUnit(scan)) return *deleted;
    }
    SqlWriter writer(literals, m_census);
    const Access access = accessFor(scan);
    writer.write(statement.kind == Statement::Update ? "update datos" : "delete from datos");
    writer.write(access.hint());
    writer.writeAssignments(statement);
    writeWhere(writer, statement, access);
    auto prepared = m_connection.prepare(writer.sql());
    if (!prepared) return std::unexpected(prepared.error());
    prepared->bind(writer.values(), Prepared::Texts::Lent);
    return runPrepared(*prepared);
}

Result<long long> Changes::insert(const std::shared_ptr<const Statement>& statement,
                                  const std::vector<Literal>& literals) {
    if (m_lastInsert != statement) {
        SqlWriter writer(literals, m_census);
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
    auto prepared = m_connection.prepare(m_lastInsertSql);
    if (!prepared) return std::unexpected(prepared.error());
    prepared->bind(m_values, Prepared::Texts::Lent);
    return runPrepared(*prepared);
}

Result<long long> Changes::runPrepared(Prepared& prepared) {
    m_connection.noteWrite();
    if (prepared.step() == Prepared::Step::Failed) return std::unexpected(m_connection.lastError());
    return sqlite3_changes64(m_connection.handle());
}

}  // namespace engine
