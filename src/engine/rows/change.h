#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/dialect/sql_writer.h"
#include "engine/rows/unit_list.h"

namespace engine {

// Runs the statements that change rows.
class Changes {
  public:
    Changes(Connection& connection, UnitList& units) : m_connection(connection), m_units(units) {}

    // The number of rows changed.
    [[nodiscard]] Result<long long> run(const std::shared_ptr<const Statement>& statement,
                                        const std::vector<Literal>& literals);

  private:
    [[nodiscard]] Result<long long> insert(const std::shared_ptr<const Statement>& statement,
                                           const std::vector<Literal>& literals);
    [[nodiscard]] Result<long long> change(const Statement& statement, const std::vector<Literal>& literals);
    [[nodiscard]] Result<long long> changeAtOnce(const Statement& statement,
                                                 const std::vector<Literal>& literals);
    [[nodiscard]] Result<long long> runPrepared(Prepared& prepared);

    Connection& m_connection;
    UnitList& m_units;
    std::vector<BoundValue> m_values;
    std::vector<std::string> m_storage;

    // The insert that ran last: a scan runs one or two of them a hundred thousand times, each of which takes
    // 2.3 µs instead of 2.6.
    std::shared_ptr<const Statement> m_lastInsert;
    std::string m_lastInsertSql;
};

}  // namespace engine
