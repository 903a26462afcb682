#include <random>

#include "catalogue_fixture.h"

namespace {

using PathLookupTest = CatalogueTest;

std::string select(const std::string& path, const std::string& level, bool asScan) {
    const std::string test = " and  ruta like ('*" + path + "*')";
    // A statement that tests its path twice is never looked up.
    return "select carpeta, ruta from datos where  disco=('U :')" + test + (asScan ? test : "") +
           "  and  nivel=('" + level + "') and tipo <>('archivo') order by carpeta ";
}

// Names that repeat, differ in case only, hold wildcards, are empty, or are those of the folders above the
// unit.
TEST_F(PathLookupTest, GivesWhatTheScanGives) {
    const std::vector<std::string> names{"a",  "A",  "b",  "ñ",  "Ñ", "base", "a b", "",     "[x]",
                                         "a#", "[a", "c]", "ab", "x", "a1",   "a?",  "[!a]", "[]"};
    std::mt19937 random(7);
    const auto name = [&] { return names[random() % names.size()]; };
    auto db = open();
    ASSERT_TRUE(db.BeginTrans());
    for (int i = 0; i < 400; ++i) {
        std::string path = "E:\\base\\a";
        std::string last;
        const int level = 1 + static_cast<int>(random() % 4);
        for (int depth = 0; depth < level; ++depth) path += "\\" + (last = name());
        addFolder(db, path, last, level, random() % 4 ? "U :" : "Otra :");
    }
    ASSERT_TRUE(db.CommitTrans());
    run(db, "update datos set nivel='b' where carpeta='x'");  // as the byte, not the letter
    run(db, "update datos set nivel='B' where carpeta='ab'");
    long long found = 0;
    for (int i = 0; i < 1500; ++i) {
        const std::string level(1, "12345bB"[random() % 7]);
        std::string path = "\\";
        for (unsigned depth = random() % 4; depth-- > 0;) path += name() + "\\";
        if (random() % 100 == 0) addFolder(db, "E:\\base\\a\\b\\new", "new", 2);
        const std::string sql = select(path, level, false);
        ASSERT_EQ(column(db, "ruta", sql), column(db, "ruta", select(path, level, true))) << sql;
        ASSERT_EQ(column(db, "carpeta", sql), column(db, "carpeta", select(path, level, true))) << sql;
        found += count(db, sql);
    }
    EXPECT_GT(found, 1000);
}

TEST_F(PathLookupTest, KnowsWhichOfTwoPatternsIsThePath) {
    auto db = open();
    addFolder(db, "E:\\a\\x", "x", 2);
    addFolder(db, "E:\\a\\y", "y", 2);
    const auto found = [&db](const char* first, const char* carpeta, const char* last) {
        return column(db, "carpeta",
                      std::string("select carpeta from datos where ruta like ('") + first +
                          "') and carpeta like ('" + carpeta + "') and ruta like ('" + last +
                          "') order by carpeta");
    };
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(found("*\\a\\*", "x", "*"), "x");
        EXPECT_EQ(found("x", "*", "*\\a\\*"), "");
    }
}

TEST_F(PathLookupTest, NestedRecordsetsKeepTheirPlaces) {
    auto db = open();
    for (const char* one : {"a", "b", "c"}) {
        addFolder(db, std::string("E:\\") + one, one, 1);
        for (const char* two : {"x", "y"}) addFolder(db, std::string("E:\\") + one + "\\" + two, two, 2);
    }
    std::string walked;
    for (int round = 0; round < 2; ++round) {
        auto outer = db.OpenRecordset(
            "select carpeta from datos where disco=('U :') and nivel=('1') order by carpeta");
        for (; !outer->Eof(); outer->MoveNext()) {
            auto inner = db.OpenRecordset(
                select("\\" + std::string(outer->Field("carpeta").text()) + "\\", "2", false));
            walked += outer->Field("carpeta").text();
            for (; !inner->Eof(); inner->MoveNext()) walked += inner->Field("carpeta").text();
            if (round == 1) addFolder(db, "E:\\d\\z", "z", 2);  // the answers kept so far hold no more
        }
    }
    EXPECT_EQ(walked, "axybxycxyaxybxycxy");
}

}  // namespace
