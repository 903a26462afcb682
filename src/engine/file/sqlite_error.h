#pragma once

#include <string>

#include "engine/error.h"

struct sqlite3;

namespace engine {

// The engine's number and a readable text for an SQLite result code.
[[nodiscard]] Error errorOfCode(int sqliteCode, const std::string& text = {});

// For the call on `database` that has just failed.
[[nodiscard]] Error lastError(sqlite3* database);

}  // namespace engine
