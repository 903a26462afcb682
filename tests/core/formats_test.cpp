#include <gtest/gtest.h>

#include <QLocale>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>

#include "core/date_format.h"
#include "core/inserts.h"
#include "core/kilobytes.h"
#include "core/language.h"
#include "core/serial_date.h"
#include "core/text.h"
#include "core/unit_kinds.h"

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
    const std::pair<std::int64_t, std::int64_t> sizes[]{{0, 0},
                                                        {511, 0},
                                                        {512, 0},
                                                        {513, 1},
                                                        {1535, 1},
                                                        {1536, 2},
                                                        {2560, 2},
                                                        {-512, 0},
                                                        {2147483648, 2097152},
                                                        {9'223'372'036'854'775'807, 9007199254740992}};
    for (const auto& [bytes, kilobytes] : sizes) EXPECT_EQ(kilobytesOf(bytes), kilobytes) << bytes;
    EXPECT_EQ(roundHalfEven(0.5), 0);
    EXPECT_EQ(roundHalfEven(1.5), 2);
    EXPECT_EQ(roundHalfEven(-2.5), -2);
}

TEST(Kilobytes, SummariesSwitchAtAThousandAndDivideBy1024) {
    const std::pair<std::int64_t, std::string> sums[]{{0, "0 KB"},    {1000, "1000 KB"},
                                                      {1001, "1 MB"}, {1536, "2 MB"},
                                                      {2560, "2 MB"}, {10'485'760, "10240 MB"}};
    for (const auto& [sum, text] : sums) EXPECT_EQ(sizeText(sum), text);
    EXPECT_EQ(sizeCaption(1, Language::Spanish), "Tamaño: 1 KB");
    EXPECT_EQ(sizeCaption(1001, Language::English), "Size: 1 MB");
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
    EXPECT_EQ(pointedDecimalText(std::nan("")), "0");
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
    }
    EXPECT_EQ(dateText(0.5), "1899-12-30 12:00:00");
    EXPECT_EQ(dateText(-0.25), "1899-12-29 18:00:00");
    EXPECT_EQ(dateText(38000 - 1e-9), dateText(38000));
    EXPECT_EQ(dateText(1e300).substr(0, 3), "100");
}

TEST(Text, PathsAndPatterns) {
    EXPECT_EQ(lastComponent("E:\\fotos\\2003"), "2003");
    EXPECT_EQ(lastComponent("D:"), "D:");
    EXPECT_EQ(lastComponent("D:\\"), "");
    EXPECT_EQ(joinPath("D:\\", "a"), "D:\\a");
    EXPECT_EQ(joinPath("D:\\b", "a"), "D:\\b\\a");
    EXPECT_EQ(withoutApostrophes("l'été d'ana"), "l´été d´ana");
    EXPECT_EQ(withApostrophes("l´été"), "l'été");
    EXPECT_EQ(replaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");

    for (const char* pattern : {"*", "a*c", "*b*", "abc", "abc*", "*abc", "**c", "a*b*c"})
        EXPECT_TRUE(like("abc", pattern)) << pattern;
    for (const char* pattern : {"", "ab", "a?c", "A*", "*b", "abc?", "*abd*", "a[b]c"})
        EXPECT_FALSE(like("abc", pattern)) << pattern;
    EXPECT_TRUE(like("", "*"));
    EXPECT_TRUE(like("aXbXbXc", "a*bXc"));
    EXPECT_FALSE(like(std::string(20'000, 'a'), "*a*a*a*a*a*a*a*b")) << "and in no time";
}

TEST(Text, KeysAreLookedUpInLowerCase) {
    constexpr std::string_view allowed = "1áñz$ ";
    for (const char32_t key : {U'1', U'á', U'Á', U'Ñ', U'Z', U' '}) EXPECT_TRUE(isAllowed(key, allowed));
    for (const char32_t key :
         {U'\'', U'a', U'Ã', U'\0', char32_t{0xC3}, char32_t{0xD800}, char32_t{0x110000}})
        EXPECT_FALSE(isAllowed(key, allowed)) << std::uint32_t(key);
    EXPECT_EQ(lowerCase("AÑO Ärger 7"), "año ärger 7");
    EXPECT_EQ(upperCase("año ärger 7"), "AÑO ÄRGER 7");
}

TEST(Language, OnlyTheExactWordIsSpanish) {
    EXPECT_EQ(languageOf("Español"), Language::Spanish);
    for (const char* other : {"español", "English", "", "Espanol"})
        EXPECT_EQ(languageOf(other), Language::English);
    EXPECT_EQ(rotulos(Language::Spanish).rotulocatalogo, "Cátalogo completo:");
    EXPECT_EQ(rotulos(Language::English).rotuloarchivos, "  Files found: ");
    for (const UnitKind& kind : unitKinds) EXPECT_EQ(unitPicture(kind.tipo), kind.picture);
    EXPECT_EQ(unitPicture("Archivo"), 16);
    EXPECT_EQ(unitPicture("Carpeta de archivos"), 16);
    EXPECT_EQ(unitPicture("archivo"), 0);
}

TEST(Inserts, AreTheLiteralStatements) {
    CatalogRow row{.numero = 21,
                   .ruta = "D:\\a",
                   .carpeta = "a",
                   .archivo = "f.txt",
                   .nivel = "1",
                   .fecha = 38123.5,
                   .largo = 2,
                   .tipo = "Archivo",
                   .disco = "Cds :",
                   .comentario = {}};
    EXPECT_EQ(insertFile(row),
              "insert into datos (numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco) values "
              "(21,'D:\\a','a','f.txt','1','38123.5','2','Archivo','Cds :')");
    row.tipo = "Carpeta de archivos";
    EXPECT_EQ(insertFolder(row),
              "insert into datos (numero,ruta,carpeta,nivel,fecha,tipo,disco) values "
              "(21,'D:\\a','a','1','38123.5','Carpeta de archivos','Cds :')");
    EXPECT_EQ(selectUnitNamed("Cds"), "select * from datos where disco =('Cds :') ");
}

}  // namespace
