#pragma once

#include <string>
#include <string_view>

namespace engine {

// The order that `order by` gives to text, for Spanish eyes: punctuation, digits, letters; case does not
// count; á stands beside a, ñ after n; other scripts follow by base letter and code point. Accents decide
// only between texts that are equal without them. Never stored in a file, so it may change.
//
// Keys compare byte by byte (memcmp, then length) as their texts sort.
void appendSortKey(std::string& key, std::string_view text);

[[nodiscard]] int compareSorted(std::string_view a, std::string_view b);

}  // namespace engine
