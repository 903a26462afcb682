#pragma once

#include <optional>

#include "engine/error.h"

struct sqlite3;

namespace engine {

// Changes when another connection has changed the file; known as of the last lock on it.
[[nodiscard]] unsigned fileVersion(sqlite3* database);

// Gives `to` all pages of `from`, in one transaction of its own; `from` must be within one. With a version it
// must still have, nothing is copied into a file that has changed since, and the result is false. Who waits
// is told how far it is; `doneBefore` is the share of all work that this is the rest of.
[[nodiscard]] Result<bool> copyPages(sqlite3* from, sqlite3* to, std::optional<unsigned> version = {},
                                     double doneBefore = 0);

}  // namespace engine
