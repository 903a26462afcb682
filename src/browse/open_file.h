#pragma once

#include <string_view>

#include "core/medium.h"

namespace browse {

enum class OpenEnd { Opened, NotFound };

// Opens a catalogued file with its default program, in the folder that holds it. A file that is not on a
// fixed disk is also looked for in every drive, and its unit is asked for once before giving up.
OpenEnd openFile(const core::CataloguedFile& file, std::string_view disco, core::Language language,
                 const core::DriveSource& drives, const core::Tell& tell);

}  // namespace browse
