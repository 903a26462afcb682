#include <gtest/gtest.h>

#include "core/serial_date.h"
#include "scan/catalogue_fixture.h"
#include "scan/manual_unit.h"
#include "scan/status_text.h"

namespace {

using core::Language;

TEST(ManualUnit, IsOneRow) {
    const test::CatalogueFixture catalogue;
    auto database = catalogue.open();
    std::string tipo;
    ASSERT_TRUE(scan::insertManualUnit({"Cds", "Pelis", 3}, tipo, database));
    ASSERT_TRUE(scan::insertManualUnit({"Otra", "x", 0}, tipo, database));
    const auto rows = catalogue.rows();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(test::summary(rows[0]) + ' ' + rows[0].disco, "1 C:Pelis Pelis - - Cds :");
    EXPECT_EQ(rows[0].fecha, core::today());
    for (const auto& row : rows) EXPECT_EQ(row.tipo, "Unidad de video") << "the kind stays in force";
}

TEST(StatusLine, EndsInAnotherSpellingInEnglishOnly) {
    const scan::Counts counts{12, 345};
    EXPECT_EQ(scan::runningStatus(counts, Language::Spanish), "  Carpetas: 12  Archivos: 345");
    EXPECT_EQ(scan::finalStatus(counts, Language::Spanish), "  Carpetas: 12  Archivos: 345");
    EXPECT_EQ(scan::runningStatus(counts, Language::English), "  Folders: 12  Files: 345");
    EXPECT_EQ(scan::finalStatus(counts, Language::English), " Folders : 12 Files : 345");
}

}  // namespace
