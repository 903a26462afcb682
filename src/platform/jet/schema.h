#pragma once

#include "platform/jet/error.h"

struct sqlite3;

namespace jet {

// Gives an empty database the file marks.
[[nodiscard]] Result<> writeMarks(sqlite3* database);

// The marks, the table and its index.
[[nodiscard]] Result<> writeSchema(sqlite3* database);

}  // namespace jet
