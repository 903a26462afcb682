#pragma once

#include <cstdint>
#include <string>

#include "core/language.h"

namespace core {

// Bytes as whole kilobytes, rounded to nearest, ties to the even neighbour: 512 bytes are 0, 1536 are 2.
[[nodiscard]] std::int64_t kilobytesOf(std::int64_t bytes);

// A number rounded to a whole one, ties to the even neighbour.
[[nodiscard]] std::int64_t roundHalfEven(double number);

// The sum of two sizes. What 64 bits do not hold becomes the last number that they do: any file may be
// opened.
[[nodiscard]] std::int64_t addKilobytes(std::int64_t sum, std::int64_t more);

// The summary of a sum of kilobytes: " KB" up to 1000, above that divided by 1024 with " MB". 1001 reads "1
// MB".
[[nodiscard]] std::string sizeText(std::int64_t kilobytes);
// The same behind "Tamaño: " or "Size: ".
[[nodiscard]] std::string sizeCaption(std::int64_t kilobytes, Language language);

}  // namespace core
