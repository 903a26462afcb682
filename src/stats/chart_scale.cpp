#include "stats/chart_scale.h"

#include <algorithm>

namespace stats {
namespace {

constexpr std::int64_t mostSteps = 6;

std::int64_t roundStep(std::int64_t extent) {
    std::int64_t decade = 1;
    for (;;) {
        for (std::int64_t factor : {1, 2, 5})
            if (extent / (decade * factor) < mostSteps) return decade * factor;
        decade *= 10;
    }
}

std::int64_t upTo(std::int64_t value, std::int64_t step) {
    return (value + step - 1) / step * step;
}

}  // namespace

ChartScale chartScale(std::span<const std::int64_t> values) {
    std::int64_t low = 0;
    std::int64_t high = 1;
    for (std::int64_t value : values) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
    const std::int64_t step = roundStep(high - low);
    return {-upTo(-low, step), upTo(high, step), step};
}

std::vector<double> spreadLabels(std::vector<double> centres, double height, double top, double bottom) {
    double floor = top + height / 2;
    for (double& centre : centres) {
        centre = std::max(centre, floor);
        floor = centre + height;
    }
    double ceiling = bottom - height / 2;
    for (auto centre = centres.rbegin(); centre != centres.rend(); ++centre) {
        *centre = std::min(*centre, ceiling);
        ceiling = *centre - height;
    }
    return centres;
}

}  // namespace stats
