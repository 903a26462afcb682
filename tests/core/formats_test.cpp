#include <gtest/gtest.h>

#include <QLocale>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>

#include "core/date_format.h"
#include "core/kilobytes.h"
#include "core/serial_date.h"
#include "core/text.h"

namespace {

using namespace core;

// Runs its block in a time zone of its own.
struct TimeZone {
    explicit TimeZone(const char* name) {
        ::setenv("TZ", name, 1);
        ::tzset();
    }
    ~TimeZone() {
        ::unsetenv("TZ");
        ::tzset();
    }
};

TEST(Kilobytes, RoundTiesToEven) {
    const std::pair<std::int64_t, std::int64_t> sizes[]{
        {0, 0}, {512, 0}, {513, 1}, {1536, 2}, {2560, 2}, {-512, 0}, {INT64_MAX, 9007199254740992}};
    for (const auto& [bytes, kilobytes] : sizes) EXPECT_EQ(kilobytesOf(bytes), kilobytes) << bytes;
    EXPECT_EQ(roundHalfEven(-2.5), -2);
}

TEST(SerialDate, IsLocalTimeWhateverTheMoment) {
    {
        const TimeZone madrid("CET-1CEST,M3.5.0,M10.5.0/3");
        EXPECT_EQ(serialOfTime(0), 25569 + 1 / 24.0);
        EXPECT_EQ(serialOfTime(1'058'486'400), 37820 + 2 / 24.0);  // 18 July 2003, summer time
        EXPECT_EQ(serialOfTime(-86'400 * 365), 25204 + 1 / 24.0);
        EXPECT_EQ(serialOfTime(-2'209'161'600), 0 + 1 / 24.0);  // 30 December 1899
    }
    const TimeZone west("XST+12");
    EXPECT_EQ(serialOfTime(0), 25568.5);
    EXPECT_EQ(serialOfTime(253'402'344'000), 2958466.0);  // midnight behind the year 9999
    for (const auto extreme :
         {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()})
        EXPECT_TRUE(std::isfinite(serialOfTime(extreme)));
    EXPECT_EQ(serialOfDate(1899, 12, 30), 0);
    EXPECT_EQ(serialOfDate(2004, 2, 29), 38046);
    EXPECT_EQ(today(), std::floor(today()));
}

TEST(SerialDate, DecimalTextReadsBackExactly) {
    for (const double number : {0.0, 38123.5, 37821.083333333336, -1.25, 1e-9, 1e22, 2958465.999988426}) {
        EXPECT_EQ(std::strtod(pointedDecimalText(number).c_str(), nullptr), number);
        EXPECT_EQ(pointedDecimalText(number).find('e'), std::string::npos);
    }
    EXPECT_EQ(pointedDecimalText(38123), "38123");
    EXPECT_EQ(decimalText(38123.5), "38123.5");
    for (const double none : {std::nan(""), -0.0}) EXPECT_EQ(pointedDecimalText(none), "0");
}

TEST(SerialDate, IsShownAsTheLocaleWritesIt) {
    const double afternoon = serialOfDate(2003, 7, 8) + (15 * 3600 + 4 * 60 + 9) / 86400.0;
    const std::tuple<const char*, std::string, std::string> shown[]{
        {"C", "2003-07-08 15:04:09", "2003-07-08"},     {"es_ES", "8/7/2003 15:04:09", "8/7/2003"},
        {"de_DE", "08.07.2003 15:04:09", "08.07.2003"}, {"fi_FI", "8.7.2003 15.04.09", "8.7.2003"},
        {"en_US", "7/8/2003 3:04:09 PM", "7/8/2003"},
    };
    for (const auto& [locale, withTime, dateOnly] : shown) {
        const DateFormat format{QLocale(QString::fromLatin1(locale))};
        EXPECT_EQ(format.text(afternoon), withTime);
        EXPECT_EQ(format.text(std::floor(afternoon)), dateOnly);
    }
    // No locale of the world may leave a pattern letter unread or lose the seconds.
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        const std::string text = DateFormat(locale).text(afternoon);
        EXPECT_NE(text.find("2003"), std::string::npos) << locale.name().toStdString() << ' ' << text;
        EXPECT_NE(text.find("09"), std::string::npos) << locale.name().toStdString() << ' ' << text;
        EXPECT_EQ(text.find("\u200F"), std::string::npos) << locale.name().toStdString() << ": turned about";
    }
    EXPECT_EQ(dateText(0.5), "1899-12-30 12:00:00");
    EXPECT_EQ(dateText(-0.25), "1899-12-29 18:00:00");
    EXPECT_EQ(dateText(38000 - 1e-9), dateText(38000));
    EXPECT_EQ(dateText(1e300).substr(0, 3), "100");
}

TEST(Text, PathsAndPatterns) {
    EXPECT_EQ(lastComponent("D:\\"), "");
    EXPECT_EQ(joinPath("D:\\", "a"), "D:\\a");
    EXPECT_EQ(replaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    for (const char* pattern : {"*", "a*c", "*b*", "abc", "**c", "a*b*c"}) EXPECT_TRUE(like("abc", pattern));
    for (const char* pattern : {"", "ab", "a?c", "A*", "*b", "*abd*"}) EXPECT_FALSE(like("abc", pattern));
    EXPECT_FALSE(like(std::string(20'000, 'a'), "*a*a*a*a*a*a*a*b")) << "and in no time";
}

TEST(Text, KeysAreLookedUpInLowerCase) {
    for (const char32_t key : {U'1', U'Á', U'Ñ', U' '}) EXPECT_TRUE(isAllowed(key, "1áñz$ "));
    for (const char32_t key : {U'a', U'Ã', U'\0', char32_t{0xC3}, char32_t{0xD800}, char32_t{0x110000}})
        EXPECT_FALSE(isAllowed(key, "1áñz$ ")) << std::uint32_t(key);
    EXPECT_EQ(lowerCase("AÑO Ärger 7"), "año ärger 7");
    EXPECT_EQ(upperCase("año ärger 7"), "AÑO ÄRGER 7");
}

}  // namespace
