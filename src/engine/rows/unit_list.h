#pragma once

#include <optional>
#include <string_view>

#include "engine/dialect/unit_names.h"
#include "engine/file/connection.h"

namespace engine {

// The units' names, read with one step through the index for each, kept until the file changes. Without them
// a comparison of `disco`, which takes no notice of case, would be a pass over the table: 0.1 s for a million
// rows, asked once a unit when a catalogue opens.
class UnitList {
  public:
    explicit UnitList(Connection& connection) : m_connection(connection) {}

    // The names as the file is now. To be asked for within a transaction together with what they are used
    // for. Gives none for a statement that asks for no unit, and keeps none when reading fails.
    [[nodiscard]] Result<const UnitNames*> namesFor(const Statement& statement);

    // Selects them in one column: each spelling once, by code point, and one null where rows have no unit.
    static const std::string_view sql;

  private:
    [[nodiscard]] Result<UnitNames> read();

    Connection& m_connection;
    long long m_version = -1;
    std::optional<UnitNames> m_names;
};

}  // namespace engine
