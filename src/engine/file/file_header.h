#pragma once

#include <string>

#include "engine/error.h"

namespace engine {

// Looks at a file before SQLite does, without waiting and without changing it: a regular file that begins
// like a catalogue passes. Otherwise fileNotFound, cannotOpenFile or unrecognizedFormat.
[[nodiscard]] Result<> checkCatalogueFile(const std::string& path);

}  // namespace engine
