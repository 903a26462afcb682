#include "core/kilobytes.h"

#include <cmath>
#include <limits>

namespace core {
namespace {

constexpr std::int64_t bytesInKilobyte = 1024;
constexpr std::int64_t kilobytesInMegabyte = 1024;
constexpr std::int64_t lastShownInKilobytes = 1000;

constexpr Bilingual sizePrefix{"Tamaño: ", "Size: "};

// `number / divisor` in whole numbers, ties to even; exact where a floating-point quotient would not be.
std::int64_t dividedHalfEven(std::int64_t number, std::int64_t divisor) {
    std::int64_t quotient = number / divisor;
    std::int64_t rest = number % divisor;
    if (rest < 0) {
        rest += divisor;
        --quotient;
    }
    const bool up = rest * 2 > divisor || (rest * 2 == divisor && quotient % 2 != 0);
    return quotient + (up ? 1 : 0);
}

}  // namespace

std::int64_t kilobytesOf(std::int64_t bytes) {
    return dividedHalfEven(bytes, bytesInKilobyte);
}

std::int64_t roundHalfEven(double number) {
    return std::llrint(number);
}

std::int64_t addKilobytes(std::int64_t sum, std::int64_t more) {
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t added = 0;
    if (!__builtin_add_overflow(sum, more, &added)) return added;
    return more > 0 ? Limits::max() : Limits::min();
}

std::string sizeText(std::int64_t kilobytes) {
    if (kilobytes > lastShownInKilobytes)
        return std::to_string(dividedHalfEven(kilobytes, kilobytesInMegabyte)) + " MB";
    return std::to_string(kilobytes) + " KB";
}

std::string sizeCaption(std::int64_t kilobytes, Language language) {
    return std::string(sizePrefix.in(language)) + sizeText(kilobytes);
}

}  // namespace core
