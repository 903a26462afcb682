#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "core/language.h"

namespace stats {

// One of the eight kinds of file that are counted. The two scopes list the same endings in different orders,
// and two of the video patterns are open at their end in the unit's list only: both lists stand in full.
struct Category {
    std::string_view key;     // its name for scripts
    core::Bilingual caption;  // as the window's table shows it
    int picture;              // of the window's icons
    std::span<const std::string_view> unitPatterns;
    std::span<const std::string_view> folderPatterns;
};

inline constexpr std::size_t categoryCount = 8;
inline constexpr std::size_t restIndex = 7;  // has no patterns: what the seven others leave of the total

extern const std::array<Category, categoryCount> categories;

}  // namespace stats
