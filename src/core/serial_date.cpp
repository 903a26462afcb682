#include "core/serial_date.h"

#include <QLocale>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "core/date_format.h"

namespace core {
namespace {

constexpr std::int64_t serialOfEpoch = 25'569;  // 1 January 1970

// Seconds to add to universal time. A moment that the C library cannot place counts as universal time.
std::int64_t localOffset(std::int64_t unixSeconds) {
    const std::time_t time = unixSeconds;
    std::tm local{};
    return localtime_r(&time, &local) ? local.tm_gmtoff : 0;
}

bool isInCalendar(double serial) {
    constexpr int firstYear = 1, lastYear = 9999;
    return serial >= serialOfDate(firstYear, 1, 1) && serial < serialOfDate(lastYear, 12, 31);
}

char decimalSign() {
    static const char sign = [] {
        const QString point = QLocale::system().decimalPoint();
        return point == u"," ? ',' : '.';
    }();
    return sign;
}

}  // namespace

double serialOfTime(std::int64_t unixSeconds) {
    // Days and time of day apart, so that no moment overflows on its way to local time.
    const std::int64_t offset = localOffset(unixSeconds);
    std::int64_t days = unixSeconds / secondsInDay;
    std::int64_t time = unixSeconds % secondsInDay + offset;
    days += time / secondsInDay;
    time %= secondsInDay;
    if (time < 0) {
        time += secondsInDay;
        --days;
    }
    return double(days + serialOfEpoch) + double(time) / secondsInDay;
}

double serialOfDate(int year, int month, int day) {
    using namespace std::chrono;
    const auto date =
        std::chrono::year{year} / std::chrono::month{unsigned(month)} / std::chrono::day{unsigned(day)};
    return double((sys_days{date} - sys_days{1899y / December / 30}).count());
}

double today() {
    return std::floor(serialOfTime(std::time(nullptr)));
}

std::int64_t timeOfSerial(double serial) {
    if (!isInCalendar(serial)) return 0;
    const double days = std::floor(serial);
    const auto seconds = int(std::lround((serial - days) * secondsInDay));
    std::tm local{};
    local.tm_year = 1899 - 1900;
    local.tm_mon = 11;
    local.tm_mday = 30 + int(days);
    local.tm_hour = seconds / 3600;
    local.tm_min = seconds / 60 % 60;
    local.tm_sec = seconds % 60;
    local.tm_isdst = -1;
    return std::mktime(&local);
}

std::string pointedDecimalText(double number) {
    if (!std::isfinite(number) || number == 0) return "0";  // nor a zero with a sign
    char digits[512];
    auto [end, error] = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed);
    if (error != std::errc{}) end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return {digits, end};
}

std::string decimalText(double number) {
    std::string text = pointedDecimalText(number);
    if (decimalSign() == '.') return text;
    if (const std::size_t point = text.find('.'); point != std::string::npos) text[point] = decimalSign();
    return text;
}

std::optional<std::string> isoDateTime(double serial) {
    using namespace std::chrono;
    if (!isInCalendar(serial)) return std::nullopt;
    const sys_seconds moment =
        sys_days{1899y / December / 30} + std::chrono::seconds{std::llround(serial * secondsInDay)};
    const sys_days day = floor<days>(moment);
    const year_month_day date{day};
    const hh_mm_ss time{moment - day};
    char text[32];
    const int length = std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", int(date.year()),
                                     unsigned(date.month()), unsigned(date.day()), int(time.hours().count()),
                                     int(time.minutes().count()), int(time.seconds().count()));
    return std::string(text, static_cast<std::size_t>(length));
}

std::string dateText(double serial) {
    static const DateFormat format(QLocale::system());
    return format.text(serial);
}

}  // namespace core
