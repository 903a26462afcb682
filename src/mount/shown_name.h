#pragma once

#include <string>
#include <string_view>

namespace mount {

// A name as a file of the mounted tree bears it.
struct ShownName {
    std::string bytes;
    bool altered = false;  // the catalogue's name cannot be a file name, so another one stands for it
};

// The bytes that the name had on its disk. What no file can be called (a hand may have typed it) is written
// with signs that look alike: "/" is "∕", "." is "․", nothing is "␢". A name of over 255 bytes gets its
// apostrophes back, or is cut.
[[nodiscard]] ShownName shownName(std::string_view catalogueName);

// The name of a unit's folder: its `disco` without " :".
[[nodiscard]] ShownName shownUnitName(std::string_view disco);

// The name with a mark of the catalogue's name behind it, for one that is shown like another.
[[nodiscard]] std::string markedName(const std::string& shown, std::string_view catalogueName);

}  // namespace mount
