#pragma once

#include <string>
#include <string_view>

namespace core {

// A unit has a name, which people type and read, and its `disco`, which its rows hold: the name with " :"
// behind it. All that makes one of the other stands here.
inline constexpr std::string_view unitSuffix = " :";

[[nodiscard]] inline std::string discoOf(std::string_view name) {
    return std::string(name).append(unitSuffix);
}

// False for what only another program, or a label that was edited oddly, can have stored.
[[nodiscard]] inline bool isDisco(std::string_view disco) {
    return disco.ends_with(unitSuffix);
}

// The name; the whole text where it is no `disco`.
[[nodiscard]] inline std::string_view unitName(std::string_view disco) {
    if (isDisco(disco)) disco.remove_suffix(unitSuffix.size());
    return disco;
}

}  // namespace core
