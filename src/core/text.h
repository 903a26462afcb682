#pragma once

#include <string>
#include <string_view>

namespace core {

[[nodiscard]] std::string replaceAll(std::string text, std::string_view what, std::string_view with);

// An apostrophe would end a literal of a statement, so names from a disk are stored with an acute accent
// instead.
[[nodiscard]] std::string withoutApostrophes(std::string_view diskText);    // ' becomes ´
[[nodiscard]] std::string withApostrophes(std::string_view catalogueText);  // ´ becomes '

// What follows the last backslash; the whole text when there is none.
[[nodiscard]] std::string_view lastComponent(std::string_view drivePath);

// Folder and name joined by a backslash, unless the folder ends in one already (a drive root).
[[nodiscard]] std::string joinPath(std::string_view folder, std::string_view name);

// The program's own pattern test, case-sensitive: `*` is any run of characters, everything else stands for
// itself.
[[nodiscard]] bool like(std::string_view text, std::string_view pattern);

// Lower case over Unicode.
[[nodiscard]] std::string lowerCase(std::string_view text);
[[nodiscard]] std::string upperCase(std::string_view text);

// The keyboard filters: true when the character, turned to lower case, stands in the allowed set.
[[nodiscard]] bool isAllowed(char32_t character, std::string_view allowed);

}  // namespace core
