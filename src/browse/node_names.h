#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace browse {

// A unit or folder by the names that place it: its own, its ancestors' from the parent up to the unit, and
// the full path (all of them from the unit down, joined by backslashes).
struct NodeNames {
    std::string text;
    std::vector<std::string> ancestors;
    std::string fullPath;

    [[nodiscard]] std::string unit() const;  // the full path up to its first backslash
    [[nodiscard]] std::vector<std::string> chain(
        int level) const;  // ancestors below the unit, outermost first
};

// The node below `disco` that the folders lead to, outermost first; the unit itself when there are none.
[[nodiscard]] NodeNames namesBelow(std::string_view disco, std::span<const std::string> folders);

}  // namespace browse
