#pragma once

#include <optional>

#include "engine/error.h"

struct sqlite3;

namespace engine {

// Changes when another connection has changed the file; known as of the last lock on it.
[[nodiscard]] unsigned fileVersion(sqlite3* database);

// A part of some longer work, by the shares that are done before and after it.
struct Portion {
    double from = 0;
    double to = 1;
};

// Gives `to` all pages of `from`, in one transaction of its own; `from` must be within one. With a version it
// must still have, nothing is copied into a file that has changed since, and the result is false. Who waits
// is told how far it is.
[[nodiscard]] Result<bool> copyPages(sqlite3* from, sqlite3* to, std::optional<unsigned> version = {},
                                     Portion portion = {});

}  // namespace engine
