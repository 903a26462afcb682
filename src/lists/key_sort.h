#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace lists {

// The order of keys by their bytes, which for UTF-8 is that of code points: result[i] is the place of the key
// that comes i-th. Equal keys keep their order, descending too. A few passes over whole words, so that a
// hundred thousand names with a common beginning cost no more than others.
[[nodiscard]] std::vector<std::uint32_t> orderOfKeys(const std::vector<std::string_view>& keys,
                                                     bool descending);

}  // namespace lists
