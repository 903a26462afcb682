#pragma once

#include <ranges>
#include <string>
#include <string_view>
#include <vector>

namespace test {

using Parts = std::vector<std::string>;

// The texts that stand between the bars.
inline Parts parts(std::string_view text) {
    Parts all;
    for (const auto part : std::views::split(text, '|')) all.emplace_back(part.begin(), part.end());
    return all;
}

}  // namespace test
