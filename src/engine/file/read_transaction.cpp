#include "engine/file/read_transaction.h"

#include <sqlite3.h>

#include "engine/file/sqlite_error.h"

namespace engine {

// What ends it is prepared before it begins, so that it can be ended without memory.
ReadTransaction::ReadTransaction(Connection& connection) : m_connection(connection) {
    if (!connection.isOpen() || connection.isInTransaction()) return;
    auto begin = connection.prepare("begin");
    auto lock = connection.prepare("select 1 from datos limit 1");  // beginning alone locks nothing
    auto end = connection.prepare("commit");
    for (const auto* statement : {&begin, &lock, &end})
        if (!*statement) m_failure = statement->error();
    if (m_failure) return;
    if (begin->step() != Prepared::Step::Failed && lock->step() != Prepared::Step::Failed) {
        m_end = std::move(*end);
        return;
    }
    const int code = sqlite3_extended_errcode(connection.handle());
    lock->release();
    connection.rollBack();
    m_failure = errorOfCode(code);
}

ReadTransaction::~ReadTransaction() {
    if (m_end.get() && m_end.step() == Prepared::Step::Failed) m_connection.rollBack();
}

}  // namespace engine
