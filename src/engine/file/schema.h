#pragma once

#include "engine/error.h"

struct sqlite3;

namespace engine {

// Makes a catalogue of an empty database: the file marks, the table and its index.
[[nodiscard]] Result<> writeSchema(sqlite3* database);

// Fails unless the table with all its columns is there, each a plain stored one that compares as ours do.
// Extra columns may stand beside them; none may be computed, which would take time and memory out of all
// proportion.
[[nodiscard]] Result<> checkSchema(sqlite3* database);

}  // namespace engine
