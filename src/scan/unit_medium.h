#pragma once

#include <optional>
#include <string>

#include "platform/drives.h"
#include "scan/unit_rows.h"

namespace scan {

// The native folder that a unit was scanned from: on its own drive, else on the drive that its disc is in
// now. A folder counts only if it holds at least half of what the unit tells of its top level, so that
// another disc in the same drive is never taken for this one. Nothing when there is no such folder.
[[nodiscard]] std::optional<std::string> findMedium(const UnitRows& unit, const platform::Drives& drives);

// The native folder of a catalogued path. Rows have an acute accent where a name may have an apostrophe, so
// each of its folders is looked for in both spellings.
[[nodiscard]] std::optional<std::string> nativeFolder(const platform::Drives& drives,
                                                      const std::string& drivePath);

}  // namespace scan
