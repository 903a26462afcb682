#pragma once

#include <string>
#include <string_view>

#include "engine/error.h"

namespace core {

// The catalogue's files. All paths are native.

inline constexpr std::string_view scratchName = "temp.ejm";  // beside the catalogue
inline constexpr std::string_view compactedName =
    "compactada.zrq";  // in the current directory, if it takes files

[[nodiscard]] std::string templatePath();  // "original.ejm" beside the executable

// A new catalogue is a copy of the template, replacing whatever is at `path`.
[[nodiscard]] engine::Result<> createCatalogue(const std::string& path);

// Makes a whole copy under another name, as engine::CopyDatabase does; what is no catalogue, or a damaged
// one, is copied byte by byte.
[[nodiscard]] engine::Result<> copyCatalogue(const std::string& source, const std::string& destination);

// The working copy's path: every occurrence of the catalogue's file name in its path replaced by "temp.ejm".
// Empty when that would be the catalogue itself (a catalogue named temp.ejm): there is no working copy then.
[[nodiscard]] std::string scratchPath(const std::string& cataloguePath);

// Gives unused space back through "compactada.zrq". Whatever goes wrong, the catalogue keeps every row: a
// stale or foreign "compactada.zrq" is never copied over it. Does nothing while this process holds the
// catalogue open.
[[nodiscard]] engine::Result<> compactCatalogue(const std::string& path);

}  // namespace core
