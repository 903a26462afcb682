#include "engine/file/read_transaction.h"

#include <sqlite3.h>

namespace engine {

// What ends it is prepared before it begins, so that it can be ended without memory.
Result<ReadTransaction> ReadTransaction::begin(Connection& connection) {
    if (!connection.isOpen() || connection.isInTransaction()) return ReadTransaction(connection, {});
    auto begin = TRY(connection.prepare("begin"));
    auto lock = TRY(connection.prepare("select 1 from datos limit 1"));  // beginning alone locks nothing
    auto end = TRY(connection.prepare("commit"));
    TRY(begin.run());
    ReadTransaction begun(connection, std::move(end));
    TRY(lock.run());
    return begun;
}

ReadTransaction::~ReadTransaction() {
    if (m_end.get() && sqlite3_step(m_end.get()) != SQLITE_DONE) m_connection.rollBack();
}

}  // namespace engine
