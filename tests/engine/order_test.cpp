#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "engine/catalogue_fixture.h"
#include "engine/text/folding.h"
#include "engine/text/sort_key.h"

namespace {

TEST(Order, IsSpanish) {
    const std::vector<std::string> sorted{"",      "(b)", "_x",    "1",    "10",   "2",  "a",   "á",   "ab",
                                          "ábaco", "b",   "Canto", "caña", "caño", "mz", "na",  "nz",  "ñ",
                                          "Ñandú", "o",   "ö",     "z",    "αβγ",  "άδ", "бык", "漢字"};
    const auto before = [](const std::string& a, const std::string& b) {
        return engine::compareSorted(a, b) < 0;
    };
    for (std::size_t i = 0; i + 1 < sorted.size(); ++i) {
        EXPECT_TRUE(before(sorted[i], sorted[i + 1])) << sorted[i] << " " << sorted[i + 1];
    }
    EXPECT_TRUE(before("canz", "caña"));
    EXPECT_TRUE(before("(b)", "1"));
    EXPECT_EQ(engine::compareSorted("ÁRBOL", "árbol"), 0);
    EXPECT_EQ(engine::compareSorted("n\u0303", "Ñ"), 0);  // taken apart or in one piece
    EXPECT_TRUE(before("resume", "résumé"));
    EXPECT_TRUE(before("résumé", "resumen"));  // accents decide last
}

class OrderedRows : public CatalogueTest {};

TEST_F(OrderedRows, ComeAsTheirNamesCompareAlsoWhenTheyBeginAlike) {
    engine::Database database = open();
    std::minstd_rand random(7);
    std::vector<std::string> names;
    for (int i = 0; i < 3000; ++i) {
        std::string name;
        for (auto piece = random() % 8; piece > 0; --piece)
            name += std::array{"carpeta larga ", "Carpeta lárga ", "a", "ñ", "b "}[random() % 5];
        names.push_back(name);
    }
    engine::Transaction all(database);
    ASSERT_TRUE(all.begin());
    for (std::size_t i = 0; i < names.size(); ++i) addFile(database, "", names[i], 1, int(i));
    ASSERT_TRUE(all.commit());

    std::vector<std::size_t> expected(names.size());
    std::iota(expected.begin(), expected.end(), 0);
    std::ranges::stable_sort(expected,
                             [&](auto a, auto b) { return engine::compareSorted(names[a], names[b]) < 0; });
    auto rows = database.OpenRecordset("select * from datos where tipo=('Archivo') order by archivo").value();
    for (const std::size_t row : expected) {
        ASSERT_EQ(rows.Field("largo").integer(), std::int64_t(row));
        rows.MoveNext();
    }
    EXPECT_TRUE(rows.Eof());
}

TEST(Folding, ComparesByFoldedCharacters) {
    EXPECT_TRUE(engine::equalFolded("ÑANDÚ ΣΟΦΟΣ", "ñandú σοφοσ"));
    EXPECT_FALSE(engine::equalFolded("a", "á"));
    EXPECT_LT(engine::compareFolded("a", "ab"), 0);
    EXPECT_EQ(engine::folded("\xff\xC3\x91"), "\xff\xC3\xB1");
}

}  // namespace
