#pragma once

#include <expected>
#include <functional>
#include <string>

#include "engine/database.h"
#include "exchange/row_reader.h"

namespace exchange {

// Why rows were not taken in. Nothing has been changed then.
struct ImportFailure {
    enum class Kind { Damaged, UnitExists, Stopped, Catalogue };
    Kind kind;
    Damage damage{};     // of a damaged file; of a unit that exists, the line it is met in
    std::string unit{};  // that exists
    engine::Error error{};
};

// Takes all rows of a file into a catalogue, in one transaction: all of them, or none. No unit of the file
// may be in the catalogue yet, case not counting. Rows keep their order, and their `numero` counts on from
// the number of rows of the catalogue, so that into an empty one they go as they are. `stopped` is asked now
// and then. Gives the number of rows.
[[nodiscard]] std::expected<long long, ImportFailure> importRows(engine::Database& database,
                                                                 RowReader& reader,
                                                                 const std::function<bool()>& stopped);

}  // namespace exchange
