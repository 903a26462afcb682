#pragma once

#include <string_view>

namespace scan {

// What may be typed as a unit's name and content, tested in lower case. Backspace and Enter pass besides.
inline constexpr std::string_view allowedInNames = "1234567890áéíóúqwertyuiopasdfghjklñzxcvbnm$%&-_@€ ";
inline constexpr std::string_view allowedInContent = allowedInNames;
// The directory comes from the folder chooser only.
inline constexpr std::string_view allowedInDirectory = "";

}  // namespace scan
