#pragma once

#include <string>
#include <string_view>

#include "engine/error.h"

namespace engine {

// Appends what a text is sorted by: keys compare byte by byte as their texts do by ICU's rules for Spanish,
// over all scripts, without regard to case (á beside a, ñ after n; accents decide only between texts that are
// equal without them). A key ends in a zero byte and holds no other, so that keys of several texts can follow
// each other. Never stored in a file: the next ICU may sort otherwise. Fails when ICU cannot be opened.
[[nodiscard]] Result<> appendSortKey(std::string& key, std::string_view text);

}  // namespace engine
