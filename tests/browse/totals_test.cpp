#include <gtest/gtest.h>

#include <limits>

#include "browse/totals.h"
#include "support/catalogue_fixture.h"

namespace {

TEST(Totals, OfAnyFileStayNumbers) {
    const test::CatalogueFixture catalogue;
    catalogue.add({test::fileRow("U :", "E:\\a", "x"), test::fileRow("U :", "E:\\a", "y"),
                   test::fileRow("U :", "E:\\a", "z")});
    auto database = catalogue.open();
    ASSERT_TRUE(database.Execute("update datos set largo = 9000000000000000000"));
    EXPECT_EQ(browse::clickedUnitTotals(database, "U :").value().kilobytes,
              std::numeric_limits<std::int64_t>::max());
}

}  // namespace
