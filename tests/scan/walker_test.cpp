#include "scan/walker.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "core/serial_date.h"
#include "platform/drives.h"
#include "scan/catalogue_fixture.h"
#include "scan/row_writer.h"
#include "scan/scan_request.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// A folder that stands for drive E:, and a catalogue elsewhere.
class Walk : public testing::Test {
  protected:
    [[nodiscard]] std::string at(const std::string& relative) const { return drive.path() + "/" + relative; }
    void folder(const std::string& relative) const { fs::create_directories(at(relative)); }
    void file(const std::string& relative, std::size_t bytes = 0) const {
        fs::create_directories(fs::path(at(relative)).parent_path());
        test::writeFile(at(relative), std::string(bytes, 'x'));
    }

    scan::WalkResult scanInto(const std::string& unit, const std::string& relative) {
        auto database = catalogue.open();
        const scan::ScanRequest request{unit, relative.empty() ? drive.path() : at(relative)};
        EXPECT_EQ(scan::refusalOf(request, database), nullptr);
        const platform::Drives drives = platform::Drives::parse("C=/;E=" + drive.path());
        scan::RowWriter rows(database, unit);
        return scan::Walker(rows, watcher, scan::walkStart(request, database, drives).value()).run();
    }
    Lines scanned(const std::string& relative) {
        scanInto("U", relative);
        return test::summaries(catalogue.rows());
    }

    test::TemporaryFolder drive;
    test::CatalogueFixture catalogue;
    test::Watcher watcher;
};

TEST_F(Walk, PutsSubfoldersFirstAndTurnsRoundAtTheLastLevel) {
    file("t/f");
    file("t/1/g");
    file("t/0/h");
    std::string deep = "t/1", ruta = R"(E:\t\1)";
    Lines expected{R"(1 E:\t\0 0 - -)", R"(2 E:\t\0 0 h 0)", R"(1 E:\t\1 1 - -)"};
    for (int nivel = 2; nivel <= 10; ++nivel) {
        const std::string name = std::to_string(nivel);
        deep += '/' + name;
        ruta += '\\' + name;
        expected.push_back(name + ' ' + ruta + ' ' + name + " - -");
    }
    for (const char* name : {"/file10", "/11/file11", "/11/12/file12"}) file(deep + name);
    for (const char* name : {"/11/12/13", "/11/12b", "/z"}) folder(deep + name);
    expected.insert(expected.end(), {"11 " + ruta + R"(\11 11 - -)", "12 " + ruta + R"(\11 11 file11 0)",
                                     "12 " + ruta + R"(\11\12 12 - -)", "12 " + ruta + R"(\11\12b 12b - -)",
                                     "11 " + ruta + R"(\z z - -)", "11 " + ruta + " 10 file10 0",
                                     R"(2 E:\t\1 1 g 0)", R"(1 E:\t t f 0)"});

    const auto result = scanInto("U", "t");
    const auto rows = catalogue.rows();
    EXPECT_EQ(test::summaries(rows), expected);
    EXPECT_EQ(result.counts.folders, 15);
    EXPECT_EQ(result.counts.files, 5);
    EXPECT_EQ(result.writes.written, 20);
    EXPECT_EQ(watcher.tooDeep, (Lines{ruta + R"(\11\12)", ruta + R"(\11\12b)"}));
    EXPECT_EQ(watcher.topLevel, 2);
    EXPECT_EQ(watcher.topDone, 2);
    EXPECT_EQ(watcher.yields, 11);        // levels 1 to 10
    EXPECT_EQ(watcher.statuses, 20 - 2);  // all but the folders at the top
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].numero, static_cast<std::int64_t>(i) + 1);
        EXPECT_EQ(rows[i].disco, "U :");
        EXPECT_EQ(rows[i].tipo, rows[i].archivo ? "Archivo" : "Carpeta de archivos");
    }
}

TEST_F(Walk, RoundsSizesAndTakesTheDateOfTheItem) {
    for (const int bytes : {511, 512, 513, 1536}) file("t/" + std::to_string(bytes), bytes);
    folder("t/d");
    const timespec times[2]{{1064052000, 0}, {1064052000, 999}};
    for (const char* name : {"t/511", "t/d"}) utimensat(AT_FDCWD, at(name).c_str(), times, 0);

    EXPECT_EQ(scanned("t"), (Lines{R"(1 E:\t\d d - -)", R"(1 E:\t t 1536 2)", R"(1 E:\t t 511 0)",
                                   R"(1 E:\t t 512 0)", R"(1 E:\t t 513 1)"}));
    const auto rows = catalogue.rows();
    EXPECT_DOUBLE_EQ(rows[0].fecha, core::serialOfTime(1064052000));
    EXPECT_DOUBLE_EQ(rows[2].fecha, core::serialOfTime(1064052000));
}

TEST_F(Walk, GivesLinksAndPipesARowAndOpensNone) {
    file("elsewhere/inside", 4096);
    folder("t/real");
    fs::create_directory_symlink("..", at("t/real/loop"));
    fs::create_directory_symlink(at("elsewhere"), at("t/away"));
    fs::create_symlink(at("elsewhere/inside"), at("t/tofile"));
    fs::create_symlink("nowhere", at("t/dangling"));
    fs::create_symlink("ring", at("t/ring"));
    ASSERT_EQ(mkfifo(at("t/pipe").c_str(), 0600), 0);
    EXPECT_EQ(scanned("t"), (Lines{R"(1 E:\t\away away - -)", R"(1 E:\t\real real - -)",
                                   R"(2 E:\t\real\loop loop - -)", R"(1 E:\t t dangling 0)",
                                   R"(1 E:\t t pipe 0)", R"(1 E:\t t ring 0)", R"(1 E:\t t tofile 4)"}));
    EXPECT_EQ(watcher.unread, Lines());
}

// What was listed is gone, or a link to elsewhere, when its turn comes.
TEST_F(Walk, GoesOnPastWhatChangesUnderIt) {
    for (const char* name : {"t/a/f", "t/gone/f", "t/stays/f", "t/swapped/f", "elsewhere/inside"}) file(name);
    watcher.onYield = [this] {
        for (const char* name : {"t/gone", "t/swapped"}) fs::remove_all(at(name));
        fs::create_directory_symlink(at("elsewhere"), at("t/swapped"));
        return false;
    };
    EXPECT_EQ(scanned("t"), (Lines{R"(1 E:\t\a a - -)", R"(2 E:\t\a a f 0)", R"(1 E:\t\stays stays - -)",
                                   R"(2 E:\t\stays stays f 0)", R"(1 E:\t\swapped swapped - -)"}));
}

TEST_F(Walk, ReachesFoldersBeyondTheLongestPath) {
    folder("t");
    const std::string name(250, 'n');
    const int before = open(".", O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(chdir(at("t").c_str()), 0);
    for (int level = 0; level < 20; ++level) {
        ASSERT_EQ(mkdir(name.c_str(), 0755), 0);
        ASSERT_EQ(chdir(name.c_str()), 0);
    }
    test::writeFile("bottom", "x");
    // Ten levels down already lies further than a path reaches once the start is deep as well.
    std::string deep = at("t");
    for (int level = 0; level < 8; ++level) deep += '/' + name;
    ASSERT_EQ(fchdir(before), 0);
    close(before);

    auto database = catalogue.open();
    scan::RowWriter rows(database, "U");
    const auto result = scan::Walker(rows, watcher, {deep, "E:\\deep", "U :", 0}).run();
    EXPECT_EQ(result.counts.folders, 12);
    EXPECT_EQ(result.counts.files, 0);
    EXPECT_EQ(catalogue.rows().back().ruta.size(), std::string("E:\\deep").size() + 12 * 251);
}

TEST_F(Walk, LooksIntoNothingOfTheKernelsUnlessItBeganThere) {
    if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "the kernel shows nothing here";
    auto database = catalogue.open();
    scan::RowWriter rows(database, "U");
    const scan::Exclusion others{{"[!p]*", "p[!r]*"}};
    EXPECT_LT(scan::Walker(rows, watcher, {"/", "C:\\", "U :", 0, others}).run().counts.folders, 100);
    EXPECT_EQ(watcher.kernel, (Lines{"C:\\proc"}));
    EXPECT_EQ(std::ranges::count(test::summaries(catalogue.rows()), R"(1 C:\proc proc - -)"), 1);
    EXPECT_GT(scan::Walker(rows, watcher, {"/proc/self", "C:\\proc\\self", "U :", 0}).run().counts.folders,
              10);
    EXPECT_EQ(watcher.kernel.size(), 1U);
}

TEST_F(Walk, CountsOnFromTheNumberOfRows) {
    for (int i = 0; i < 3; ++i) file("t/" + std::to_string(i));
    scanInto("First", "t");
    scanInto("Second", "t");
    static_cast<void>(catalogue.open().Execute("delete * from datos where disco like ('First :')").value());
    scanInto("Third", "t");
    std::vector<std::int64_t> numeros;
    for (const auto& row : catalogue.rows()) numeros.push_back(row.numero);
    EXPECT_EQ(numeros, (std::vector<std::int64_t>{4, 4, 5, 5, 6, 6}));
}

TEST(Listing, OrdersByNameWithoutRegardToCaseThenByBytes) {
    const Lines expected{".x", "10",     "9",      "a",      "A b",  "abcdefgh", "ABCDEFGHa", "abcdefghB",
                         "Ba", "README", "Readme", "readme", "zeta", "áb",       "Ác",        "Ñu"};
    Lines shuffled = expected;
    for (int i = 0; i < 50; ++i) {
        std::ranges::rotate(shuffled, shuffled.begin() + 5);
        std::swap(shuffled.front(), shuffled[i % shuffled.size()]);
        scan::Listing listing;
        for (const std::string& name : shuffled) listing.addFile(name, false);
        listing.sort();
        Lines inOrder;
        for (const auto& entry : listing.files()) inOrder.emplace_back(listing.name(entry));
        EXPECT_EQ(inOrder, expected);
    }
}

}  // namespace
