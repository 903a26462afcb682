#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/jet/connection.h"
#include "platform/jet/literals.h"
#include "platform/jet/statement.h"

namespace jet {

// The few spellings that stand in `disco`, so that a condition on a unit's name becomes a list of exact spellings
// that the index can serve.
class Units {
  public:
    explicit Units(Connection& connection) : m_connection(connection) {}

    // By code point; read through the index, one step a unit. A null in `disco` is not among them.
    [[nodiscard]] const std::vector<std::string>& spellings();

  private:
    void read();

    Connection& m_connection;
    std::vector<std::string> m_spellings;
    std::optional<long long> m_version;
};

}  // namespace jet
