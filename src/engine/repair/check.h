#pragma once

#include "engine/maintenance.h"

struct sqlite3;

namespace engine {

// What is wrong with the pages of an open database, and with the values of its rows, added to `check`. What
// SQLite calls damage is a fault too; any other error (a lock, no memory, a disk that fails) is the result.
[[nodiscard]] Result<> checkPages(sqlite3* database, Check& check);
[[nodiscard]] Result<> checkValues(sqlite3* database, Check& check);

}  // namespace engine
