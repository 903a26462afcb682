#pragma once

#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "engine/dialect/unit_names.h"
#include "engine/file/connection.h"

namespace engine {

// Where in the table the rows of a unit lie, from the first to the last.
struct Stretch {
    std::int64_t firstRow = 0;
    std::int64_t lastRow = 0;
};
inline constexpr Stretch wholeTable{std::numeric_limits<std::int64_t>::min(),
                                    std::numeric_limits<std::int64_t>::max()};

// The units' names, read with one step through the index for each, kept until the file changes. Without them
// a comparison of `disco`, which takes no notice of case, would be a pass over the table: 0.1 s for a million
// rows, asked once a unit when a catalogue opens.
class UnitList {
  public:
    explicit UnitList(Connection& connection) : m_connection(connection) {}

    // The names as the file is now. To be asked for within a transaction together with what they are used
    // for. Gives none for a statement that asks for no unit, and keeps none when reading fails.
    [[nodiscard]] Result<const UnitNames*> namesFor(const Statement& statement);

    // What statements found out about units since the names were read, by their words and values: where the
    // rows lie, or nothing where they are not together. A click on a folder asks five times, 15 ms each in a
    // unit of 150,000 rows.
    [[nodiscard]] std::map<std::string, std::optional<Stretch>>& stretches() { return m_stretches; }

    // Selects them in one column: each spelling once, by code point, and one null where rows have no unit.
    static const std::string_view sql;

  private:
    [[nodiscard]] Result<UnitNames> read();

    Connection& m_connection;
    long long m_version = -1;
    std::optional<UnitNames> m_names;
    std::map<std::string, std::optional<Stretch>> m_stretches;
};

}  // namespace engine
