#pragma once

#include <string>
#include <string_view>

namespace platform {

// The per-user settings store: application "zarquelin", section "inicio". An absent key reads as the empty
// text. Values are stored at once; a store that cannot be written keeps them for the run only.
[[nodiscard]] std::string GetSetting(std::string_view key);
void SaveSetting(std::string_view key, std::string_view value);

}  // namespace platform
