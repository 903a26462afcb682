#pragma once

#include <string>

#include "engine/error.h"

namespace engine {

// Writes an empty catalogue database (table `datos`, its indexes, the file marks) to a native path that does
// not exist yet.
[[nodiscard]] Result<> CreateDatabase(const std::string& nativePath);

// Rewrites `source` without its unused space into `destination`. Refuses a source that this process holds
// open (error::locked). `destination` is replaced only by a complete file, and is gone when the call fails.
[[nodiscard]] Result<> CompactDatabase(const std::string& source, const std::string& destination);

// Rebuilds a damaged catalogue in place from every row that can still be read. The damaged original stays
// beside it until the sound file is complete; a sound file is left as it is. Fails, with the file untouched,
// when not even the rows' table can be found.
[[nodiscard]] Result<> RepairDatabase(const std::string& nativePath);

// Deletes what a program that died within a change left beside a name that leads to no catalogue any more. It
// would be taken for a part of the next file of that name, and spoil it.
void ForgetInterruptedChange(const std::string& nativePath);

}  // namespace engine
