#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/jet/folding.h"
#include "platform/jet/sort_key.h"

namespace {

TEST(Order, IsSpanish) {
    const std::vector<std::string> sorted{"",      "(b)", "_x",    "1",    "10",   "2",  "a",   "á",   "ab",
                                          "ábaco", "b",   "Canto", "caña", "caño", "mz", "na",  "nz",  "ñ",
                                          "Ñandú", "o",   "ö",     "z",    "αβγ",  "άδ", "бык", "漢字"};
    const auto before = [](const std::string& a, const std::string& b) {
        return jet::compareSorted(a, b) < 0;
    };
    for (std::size_t i = 0; i + 1 < sorted.size(); ++i) {
        EXPECT_TRUE(before(sorted[i], sorted[i + 1])) << sorted[i] << " " << sorted[i + 1];
    }
    EXPECT_TRUE(before("canz", "caña"));
    EXPECT_TRUE(before("(b)", "1"));
    EXPECT_EQ(jet::compareSorted("ÁRBOL", "árbol"), 0);
    EXPECT_EQ(jet::compareSorted("n\u0303", "Ñ"), 0);  // taken apart or in one piece
    EXPECT_TRUE(before("resume", "résumé"));
    EXPECT_TRUE(before("résumé", "resumen"));  // accents decide last
}

TEST(Folding, ComparesByFoldedCharacters) {
    EXPECT_TRUE(jet::equalFolded("ÑANDÚ ΣΟΦΟΣ", "ñandú σοφοσ"));
    EXPECT_FALSE(jet::equalFolded("a", "á"));
    EXPECT_LT(jet::compareFolded("a", "ab"), 0);
    EXPECT_EQ(jet::folded("\xff\xC3\x91"), "\xff\xC3\xB1");
}

}  // namespace
