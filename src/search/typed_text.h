#pragma once

#include <string>
#include <string_view>

namespace search {

// What the keyboard lets into the fields. Neither apostrophe nor double quote: nothing else keeps them out of
// a statement. `*`, `?`, `#` and `[` pass and act as wildcards.
inline constexpr std::string_view nameCharacters =
    " 1234567890áéíóúqwertyuiopasdfghjklñzxcvbnm\\ºª´,.;:<>!·$%&/()=?¿-_´¨`^+*{[]|@#~€¬";
inline constexpr std::string_view sizeCharacters = " 1234567890";

// A size text after a click on its step buttons. There is no lower limit: "0" steps down to "-10".
inline constexpr double sizeStep = 10;
[[nodiscard]] std::string steppedSize(std::string_view text, double step);

}  // namespace search
