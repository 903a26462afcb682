#pragma once

#include "engine/file/connection.h"

namespace engine {

// Several reads that see the same state of the file and lock it once for all. Inside of an open transaction,
// which gives that already, it does nothing.
class ReadTransaction {
  public:
    // Fails where the file cannot be locked for reading.
    [[nodiscard]] static Result<ReadTransaction> begin(Connection& connection);
    ReadTransaction(ReadTransaction&&) = default;
    ~ReadTransaction();

  private:
    ReadTransaction(Connection& connection, Prepared end) : m_connection(connection), m_end(std::move(end)) {}

    Connection& m_connection;
    Prepared m_end;
};

}  // namespace engine
