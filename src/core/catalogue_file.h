#pragma once

#include <string>

#include "engine/error.h"
#include "platform/files.h"

namespace core {

// The catalogue's files. All paths are native.

inline constexpr std::string_view templateName = "original.ejm";     // beside the executable
inline constexpr std::string_view scratchName = "temp.ejm";          // beside the catalogue
inline constexpr std::string_view compactedName = "compactada.zrq";  // in the current directory

// A new catalogue is a copy of the template, replacing whatever is at `path`.
[[nodiscard]] platform::FileResult<> createCatalogue(const std::string& path);

// Copies a catalogue to another name, replacing whatever is there. Other programs may be using both: neither
// is changed meanwhile, and one in the midst of a change is waited for, then refused.
[[nodiscard]] platform::FileResult<> copyCatalogue(const std::string& source, const std::string& destination);

// The same for the working copy, which may be lost and whose name is the program's own.
[[nodiscard]] platform::FileResult<> copyToScratch(const std::string& source, const std::string& scratch);

// The working copy's path: every occurrence of the catalogue's file name in its path replaced by "temp.ejm".
// Empty when that would be the catalogue itself (a catalogue named temp.ejm): there is no working copy then.
[[nodiscard]] std::string scratchPath(const std::string& cataloguePath);

// Gives unused space back through "compactada.zrq". Whatever goes wrong, the catalogue keeps every row: a
// stale or foreign "compactada.zrq" is never copied over it. Does nothing while this process holds the
// catalogue open.
[[nodiscard]] engine::Result<> compactCatalogue(const std::string& path);

}  // namespace core
