#pragma once

#include <string>

#include "core/language.h"
#include "scan/left_out.h"
#include "scan/row_sink.h"
#include "scan/walk_observer.h"

namespace scan {

// The status line while a walk runs, and the one that it ends with (which in English is spelled otherwise).
[[nodiscard]] std::string runningStatus(const Counts& counts, core::Language language);
[[nodiscard]] std::string finalStatus(const Counts& counts, core::Language language);

// What a walk could not catalogue, to stand behind the totals; empty when nothing is missing.
[[nodiscard]] std::string missingText(const LeftOut& leftOut, const WriteSummary& writes,
                                      core::Language language);

}  // namespace scan
