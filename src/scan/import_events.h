#pragma once

#include <functional>

#include "core/units.h"

namespace scan {

// What the import panel has to tell the window around it.
struct ImportEvents {
    std::function<void()> walkBegins;  // tree and lists are to be seen
    std::function<void(const core::UnitItem& unit)> unitScanned;
    std::function<void(const core::UnitItem& unit)> unitTyped;
    std::function<void()> walkEnds;  // to its end: the button of what is seen by now is to be down
    std::function<void()> stopped;   // by the user: what the catalogue holds is to be shown anew
    std::function<void()> ended;     // however; the totals may be others now
};

}  // namespace scan
