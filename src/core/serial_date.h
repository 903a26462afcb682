#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace core {

inline constexpr std::int64_t secondsInDay = 86'400;

// Dates are serial numbers: whole days since 30 December 1899 in local time, the time of day as the fraction.
[[nodiscard]] double serialOfTime(std::int64_t unixSeconds);
// The way back, to the nearest second. A moment outside the years 1 to 9999 is the beginning of 1970.
[[nodiscard]] std::int64_t timeOfSerial(double serial);
[[nodiscard]] double serialOfDate(int year, int month, int day);
[[nodiscard]] double today();

// The decimal text of a number as statements carry it: shortest form that reads back to the same number, with
// the machine's decimal sign ("38123,5" on a Spanish machine) or always a point.
[[nodiscard]] std::string decimalText(double number);
[[nodiscard]] std::string pointedDecimalText(double number);

// The date as shown: the machine's short date with a four-digit year and, unless it is midnight, the time of
// day with seconds.
[[nodiscard]] std::string dateText(double serial);

// The same for programs, "2003-05-31T12:00:00", to the nearest second. Nothing outside the years 1 to
// 9999.
[[nodiscard]] std::optional<std::string> isoDateTime(double serial);

}  // namespace core
