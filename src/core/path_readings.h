#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/drives.h"

namespace core {

// What a path that a person typed can mean, as rows spell it but with its apostrophes: in drive form, or
// relative to the unit, without a backslash at either end. The likelier reading comes first.
struct PathReading {
    bool relative = false;
    std::string path;
    bool folderOnly = false;  // a separator ended it
    bool operator==(const PathReading&) const = default;
};
[[nodiscard]] std::vector<PathReading> readingsOf(std::string_view typed, const platform::Drives& drives);

}  // namespace core
