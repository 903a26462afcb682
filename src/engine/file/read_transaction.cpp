#include "engine/file/read_transaction.h"

namespace engine {

namespace {

bool run(Connection& connection, const char* sql) {
    auto prepared = connection.prepare(sql);
    return prepared && prepared->step() != Prepared::Step::Failed;
}

}  // namespace

ReadTransaction::ReadTransaction(Connection& connection) : m_connection(connection) {
    if (!connection.isOpen() || connection.isInTransaction()) return;
    m_begun = run(connection, "begin");
    if (m_begun && run(connection, "select 1 from datos limit 1")) return;  // beginning alone locks nothing
    m_failure = connection.lastError();
}

ReadTransaction::~ReadTransaction() {
    if (m_begun) (void)run(m_connection, m_failure ? "rollback" : "commit");
}

}  // namespace engine
