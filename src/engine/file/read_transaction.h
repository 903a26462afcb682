#pragma once

#include <optional>

#include "engine/file/connection.h"

namespace engine {

// Several reads that see the same state of the file and lock it once for all. Inside of an open transaction,
// which gives that already, it does nothing.
class ReadTransaction {
  public:
    explicit ReadTransaction(Connection& connection);
    ~ReadTransaction();
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

    // Why the file could not be locked for reading, if it could not: the reads must not be done then.
    [[nodiscard]] const std::optional<Error>& failure() const { return m_failure; }

  private:
    Connection& m_connection;
    Prepared m_end;
    std::optional<Error> m_failure;
};

}  // namespace engine
