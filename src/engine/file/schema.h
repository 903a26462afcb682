#pragma once

#include "engine/error.h"

struct sqlite3;

namespace engine {

// Makes a catalogue of an empty database: the file marks, the table and its index.
[[nodiscard]] Result<> writeSchema(sqlite3* database);

}  // namespace engine
