#include "duplicates/duplicates.h"

#include <gtest/gtest.h>

#include "support/catalogue_fixture.h"

namespace {

using Lines = std::vector<std::string>;

class Duplicates : public testing::Test {
  protected:
    void SetUp() override {
        auto rows = std::vector{test::fileRow("A :", R"(E:\)", "Ñandú.jpg", 10),
                                test::fileRow("A :", R"(E:\x)", "one", 900),
                                test::fileRow("A :", R"(E:\x)", "Big.iso", 1000),
                                test::folderRow("A :", R"(E:\big.iso)"),
                                test::fileRow("B :", R"(F:\)", "ñANDÚ.JPG", 10),
                                test::fileRow("B :", R"(F:\y)", "BIG.iso", 1000),
                                test::fileRow("B :", R"(F:\y)", "one", 901),
                                test::fileRow("b :", R"(F:\)", "ñandú.jpg", 10),
                                test::fileRow("B :", R"(F:\y)", "empty", 0),
                                test::fileRow("A :", R"(E:\)", "empty", 0)};
        rows[5].fecha += 1;
        catalogue.add(rows);
    }

    // "largo waste disco ruta archivo, ..." of each group, in its order.
    Lines found(const duplicates::Request& request) const {
        auto database = catalogue.open(engine::Use::ReadOnly);
        Lines lines;
        EXPECT_TRUE(duplicates::find(database, request, [&](const duplicates::Group& group) {
            lines.push_back(std::to_string(group.largo) + ' ' + std::to_string(group.waste));
            for (const auto& copy : group.copies)
                lines.back().append(" ").append(copy.disco).append(copy.ruta).append(copy.archivo);
        }));
        return lines;
    }

    test::CatalogueFixture catalogue;
};

TEST_F(Duplicates, PutTheLargestWasteFirst) {
    const std::string big = R"(1000 1000 A :E:\xBig.iso B :F:\yBIG.iso)";
    const std::string pictures = R"(10 20 A :E:\Ñandú.jpg B :F:\ñANDÚ.JPG b :F:\ñandú.jpg)";
    EXPECT_EQ(found({}), (Lines{big, pictures, R"(0 0 B :F:\yempty A :E:\empty)"}));
    EXPECT_EQ(found({.leastKilobytes = 10}), (Lines{big, pictures}));
    EXPECT_EQ(found({.leastKilobytes = 11}), Lines{big});
}

TEST_F(Duplicates, AgreeInWhatIsAskedFor) {
    EXPECT_EQ(found({.leastKilobytes = 900, .bySize = false}),
              (Lines{R"(1000 1000 A :E:\xBig.iso B :F:\yBIG.iso)", R"(901 900 A :E:\xone B :F:\yone)"}));
    EXPECT_EQ(found({.leastKilobytes = 11, .byDate = true}), Lines());
    EXPECT_EQ(found({.leastKilobytes = 901, .byName = false}),
              Lines{R"(1000 1000 A :E:\xBig.iso B :F:\yBIG.iso)"});
    EXPECT_EQ(found({.leastKilobytes = 11, .byName = false, .bySize = false, .byDate = true}),
              Lines{R"(1000 1801 A :E:\xone A :E:\xBig.iso B :F:\yone)"});
}

TEST_F(Duplicates, AreToldFromFilesWithTheSameHash) {
    constexpr long long small = 2000, sameHash = small + 2'971'215'073;
    for (const long long largo : {small, sameHash, small, sameHash}) {
        auto row = test::fileRow("C :", "F:\\", std::to_string(largo));
        row.largo = largo;
        catalogue.add({row});
    }
    EXPECT_EQ(found({.leastKilobytes = small, .byName = false}),
              (Lines{"2971217073 2971217073 C :F:\\2971217073 C :F:\\2971217073",
                     "2000 2000 C :F:\\2000 C :F:\\2000"}));
}

TEST_F(Duplicates, LieInTheUnitsThatAreNamedToTheLetter) {
    EXPECT_EQ(found({.discos = {"B :"}}), Lines());
    EXPECT_EQ(found({.discos = {"b :", "B :"}, .leastKilobytes = 1}),
              Lines{R"(10 10 B :F:\ñANDÚ.JPG b :F:\ñandú.jpg)"});
}

}  // namespace
