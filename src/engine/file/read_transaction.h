#pragma once

#include "engine/file/connection.h"

namespace engine {

// Several reads that see the same state of the file and lock it once for all. Inside of an open transaction
// it does nothing.
class ReadTransaction {
  public:
    explicit ReadTransaction(Connection& connection);
    ~ReadTransaction();
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

    // True when this one has begun, and the file is locked against change.
    [[nodiscard]] bool begun() const { return m_begun; }

  private:
    Connection& m_connection;
    bool m_begun = false;
};

}  // namespace engine
