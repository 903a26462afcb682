#include "engine/file/read_transaction.h"

#include <sqlite3.h>

namespace engine {

namespace {

bool run(Connection& connection, const char* sql) {
    auto prepared = connection.prepare(sql);
    return prepared && prepared->step() != Prepared::Step::Failed;
}

}  // namespace

ReadTransaction::ReadTransaction(Connection& connection) : m_connection(connection) {
    if (!connection.isOpen() || sqlite3_get_autocommit(connection.handle()) == 0) return;
    if (!run(connection, "begin")) return;
    m_begun = run(connection, "select 1 from datos limit 1");  // beginning alone locks nothing
    if (!m_begun) (void)run(connection, "rollback");
}

ReadTransaction::~ReadTransaction() {
    if (m_begun) (void)run(m_connection, "commit");
}

}  // namespace engine
