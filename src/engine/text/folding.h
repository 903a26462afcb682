#pragma once

#include <string>
#include <string_view>

namespace engine {

// Case folding, one character for one over all of Unicode: the measure of `=`, `<>`, `in` and `like`. Accents
// differ.

[[nodiscard]] char32_t folded(char32_t character);
[[nodiscard]] std::string folded(std::string_view text);
void appendFolded(std::string& out, std::string_view text);

// Order by folded characters; 0 when the texts are equal but for case.
[[nodiscard]] int compareFolded(std::string_view a, std::string_view b);
[[nodiscard]] bool equalFolded(std::string_view a, std::string_view b);

// Lower-cases ASCII letters; `out` must hold `size` bytes.
void foldAscii(const char* text, std::size_t size, char* out);

}  // namespace engine
