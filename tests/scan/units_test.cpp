#include <gtest/gtest.h>

#include "core/serial_date.h"
#include "core/text.h"
#include "scan/allowed_keys.h"
#include "scan/catalogue_fixture.h"
#include "scan/manual_unit.h"
#include "scan/scan_request.h"
#include "scan/status_text.h"

namespace {

using core::Language;

TEST(ManualUnit, IsOneRow) {
    const test::CatalogueFixture catalogue;
    auto database = catalogue.open();
    std::string tipo;
    ASSERT_TRUE(scan::insertManualUnit({"Cds", "Pelis", 3}, tipo, database));
    ASSERT_TRUE(scan::insertManualUnit({"Otra", "x", 0}, tipo, database));  // the kind stays in force

    const auto rows = catalogue.rows();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(test::summary(rows[0]), "1 C:Pelis Pelis - -");
    EXPECT_EQ(rows[0].disco, "Cds :");
    EXPECT_EQ(rows[0].tipo, "Unidad de video");
    EXPECT_EQ(rows[0].fecha, core::today());
    EXPECT_EQ(rows[1].tipo, "Unidad de video");
    EXPECT_EQ(rows[1].numero, 2);
}

TEST(Refusals, ComeInOrder) {
    const test::CatalogueFixture catalogue;
    auto database = catalogue.open();
    std::string tipo;
    ASSERT_TRUE(scan::insertManualUnit({"Cds", "Pelis", 1}, tipo, database));

    const auto forScan = [&](const char* name, const char* directory) {
        const auto* refusal = scan::refusalOf(scan::ScanRequest{name, directory}, database);
        return refusal ? std::string(refusal->text.spanish) + "|" + std::string(refusal->title) : "";
    };
    EXPECT_EQ(forScan("", ""), "Introduzca un nombre para la unidad.|zarquelin");
    EXPECT_EQ(forScan("a", ""), "Seleccione el directorio a catalogar.|zarquelin");
    EXPECT_EQ(forScan("cDs", "/"), "Seleccione otro nombre para la unidad.|Nompre existente");
    EXPECT_EQ(forScan("Cd", "/"), "");

    const auto byHand = [&](const char* name, const char* content) {
        const auto* refusal = scan::refusalOf(scan::ManualUnit{name, content, 1}, database);
        return refusal ? std::string(refusal->text.english) + "|" + std::string(refusal->title) : "";
    };
    EXPECT_EQ(byHand("", ""), "write the content of the unit.|zarquelin");
    EXPECT_EQ(byHand("", "x"), "Write a name for the unit.|zarquelin");
    EXPECT_EQ(byHand("CDS", "x"), "Select another name for the unit.|Zarquelin");
    EXPECT_EQ(byHand("Cd", "x"), "");
}

TEST(StatusLine, EndsInAnotherSpellingInEnglishOnly) {
    const scan::Counts counts{12, 345};
    EXPECT_EQ(scan::runningStatus(counts, Language::Spanish), "  Carpetas: 12  Archivos: 345");
    EXPECT_EQ(scan::finalStatus(counts, Language::Spanish), "  Carpetas: 12  Archivos: 345");
    EXPECT_EQ(scan::runningStatus(counts, Language::English), "  Folders: 12  Files: 345");
    EXPECT_EQ(scan::finalStatus(counts, Language::English), " Folders : 12 Files : 345");
}

TEST(AllowedKeys, KeepNamesSafeInStatementsAndPatterns) {
    for (const char32_t c : std::u32string_view(U"Ñáé Z9$%&-_@€"))
        EXPECT_TRUE(core::isAllowed(c, scan::allowedInNames)) << static_cast<unsigned>(c);
    for (const char32_t c : std::u32string_view(U"'\"\\/:*?#[]()´;.,ü"))
        EXPECT_FALSE(core::isAllowed(c, scan::allowedInNames)) << static_cast<unsigned>(c);
}

}  // namespace
