#pragma once

#include <QColor>
#include <QIcon>
#include <array>
#include <cstddef>

#include "stats/categories.h"
#include "stats/statistics.h"

namespace stats {

// One colour a category, the same in the table and in all charts. The eight are told apart with every common
// kind of colour blindness; outlines keep the light ones visible on a white ground.
[[nodiscard]] QColor categoryColour(std::size_t category);
[[nodiscard]] QColor categoryOutline(std::size_t category);

inline constexpr int iconSize = 20;
inline constexpr double iconGap = 4;  // between a bar and its picture or text
using CategoryIcons = std::array<QIcon, categoryCount>;

// "12 (34 %)", the label of a slice.
[[nodiscard]] QString shareText(const Statistics& statistics, std::size_t category);

}  // namespace stats
