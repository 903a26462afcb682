#include "browse/properties.h"

#include <gtest/gtest.h>

#include <limits>

#include "browse/totals.h"
#include "support/catalogue_fixture.h"

namespace {

using browse::Properties;
using browse::PropertiesRequest;
using core::Language;

struct PropertiesOf : testing::Test {
    PropertiesOf() {
        catalogue.add({test::folderRow("Cds :", "E:\\a"), test::folderRow("Cds :", "E:\\a\\b"),
                       test::fileRow("Cds :", "E:\\a", "f", 1),  // too small to count in the unit's size
                       test::fileRow("Cds :", "E:\\a\\b", "f", 1000),
                       test::fileRow("Other :", "E:\\a\\b", "f", 999)});
    }
    test::CatalogueFixture catalogue;
    engine::Database database = catalogue.open();
};

TEST_F(PropertiesOf, AUnitCountsItsOwnRows) {
    PropertiesRequest request{
        .node = "Cds :", .isUnit = true, .picture = 16, .firstListType = "Carpeta de archivos"};
    EXPECT_EQ(
        propertiesOf(request, database, Language::Spanish),
        (Properties{"Unidad de carpetas y archivos", "Cds :", "1000 KB", "2 archivos y 2 carpetas.", 16}));
    request.firstListType = "Audio unit";
    EXPECT_EQ(propertiesOf(request, database, Language::English),
              (Properties{"Audio unit", "Cds :", "1000 KB", "2 files and 2 folders.", 16}));
}

TEST_F(PropertiesOf, AFolderCountsWhatLiesDeeper) {
    const PropertiesRequest request{.node = "a",
                                    .isUnit = false,
                                    .discoactual = "Cds :",
                                    .rutaactual = "\\a",
                                    .nivelactual = 2,
                                    .picture = 2,
                                    .firstListType = "Audio unit"};
    EXPECT_EQ(propertiesOf(request, database, Language::English),
              (Properties{"Files folder", "a", "1000 KB", "1 files and 0 folders.", 2}));
}

TEST_F(PropertiesOf, TotalsStayNumbersWhateverTheFileHolds) {
    auto writer = catalogue.open();
    ASSERT_TRUE(writer.Execute("update datos set largo = 9000000000000000000"));
    EXPECT_EQ(browse::clickedUnitTotals(database, "Cds :").value().kilobytes,
              std::numeric_limits<std::int64_t>::max());
}

}  // namespace
