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
    // Below a negative bar its count stands, and below that the icon.
    const std::int64_t lowest = low < 0 ? -upTo(-low, step) - step : 0;
    return {lowest, upTo(high, step), step};
}

// Labels that meet are pooled into one block around the mean of what they wanted. Less each one's place in
// the column, the wanted centres only have to ascend.
std::vector<double> spreadLabels(std::vector<double> centres, double height, double top, double bottom) {
    struct Block {
        double sum;
        int labels;
        [[nodiscard]] double mean() const { return sum / labels; }
    };
    std::vector<Block> blocks;
    for (std::size_t i = 0; i < centres.size(); ++i) {
        blocks.push_back({centres[i] - static_cast<double>(i) * height, 1});
        while (blocks.size() > 1 && blocks[blocks.size() - 2].mean() > blocks.back().mean()) {
            const Block last = blocks.back();
            blocks.pop_back();
            blocks.back().sum += last.sum;
            blocks.back().labels += last.labels;
        }
    }
    const double highest = top + height / 2;
    const double lowest = std::max(highest, bottom - height * (static_cast<double>(centres.size()) - 0.5));
    std::size_t i = 0;
    for (const Block& block : blocks) {
        const double first = std::clamp(block.mean(), highest, lowest);
        for (int label = 0; label < block.labels; ++label, ++i)
            centres[i] = first + static_cast<double>(i) * height;
    }
    return centres;
}

}  // namespace stats
