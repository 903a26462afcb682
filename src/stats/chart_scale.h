#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace stats {

// The value axis of a bar chart: from `low` (0, or below it when a value is negative) to `high` (always above
// 0) in steps of a round whole number that falls on both ends.
struct ChartScale {
    std::int64_t low = 0;
    std::int64_t high = 1;
    std::int64_t step = 1;
};
[[nodiscard]] ChartScale chartScale(std::span<const std::int64_t> values);

// Moves labels of one height, wanted at these centres (ascending), apart until none overlaps its neighbour,
// inside [top, bottom] as far as they fit there.
[[nodiscard]] std::vector<double> spreadLabels(std::vector<double> centres, double height, double top,
                                               double bottom);

}  // namespace stats
