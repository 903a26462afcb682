#pragma once

#include <string>

#include "core/language.h"
#include "scan/walk_observer.h"

namespace scan {

// The status line while a walk runs, and the one that it ends with (which in English is spelled otherwise).
[[nodiscard]] std::string runningStatus(const Counts& counts, core::Language language);
[[nodiscard]] std::string finalStatus(const Counts& counts, core::Language language);

}  // namespace scan
