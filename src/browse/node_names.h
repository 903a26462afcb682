#pragma once

#include <string>
#include <vector>

#include "platform/controls/tree_view.h"

namespace browse {

// A tree node by the names that place it: its own, its ancestors' from the parent up to the unit, and the
// full path (all of them from the unit down, joined by backslashes).
struct NodeNames {
    std::string text;
    std::vector<std::string> ancestors;
    std::string fullPath;

    [[nodiscard]] std::string unit() const;  // the full path up to its first backslash
    [[nodiscard]] std::vector<std::string> chain(
        int level) const;  // ancestors below the unit, outermost first
};

[[nodiscard]] NodeNames namesOf(const controls::TreeModel& nodes, controls::Node node);

}  // namespace browse
