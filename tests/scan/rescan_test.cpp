#include "scan/rescan.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "core/literals.h"
#include "scan/catalogue_fixture.h"
#include "scan/row_writer.h"
#include "scan/scan_request.h"
#include "support/hostile_names.h"
#include "support/mounted_discs.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using Kind = scan::RescanFailure::Kind;

// A disc in drive E:, scanned as the unit "U".
class Rescan : public testing::Test {
  protected:
    void SetUp() override { discs.insert('E', "disc"); }

    void scanAs(const std::string& unit, const std::string& disc = "disc") {
        auto database = catalogue.open();
        scan::RowWriter rows(database, unit);
        const scan::ScanRequest request{unit, discs.disc(disc)};
        static_cast<void>(
            scan::Walker(rows, watcher, scan::walkStart(request, database, discs()).value()).run());
    }
    void note(const std::string& archivo, const std::string& text) const {
        auto database = catalogue.open();
        EXPECT_EQ(database.Execute("update datos set comentario=" + core::literal(text) +
                                   " where archivo=" + core::literal(archivo)),
                  1);
    }
    scan::Rescanned<scan::UnitChanges> compare(const std::string& directory = {}) {
        auto database = catalogue.open(engine::Use::ReadOnly);
        return scan::compareUnit(database, {"u :", directory}, discs(), watcher);
    }
    scan::Rescanned<scan::UnitChanges> update(const std::string& directory = {}) {
        auto database = catalogue.open();
        return scan::updateUnit(database, {"U :", directory}, discs(), watcher, stopped);
    }
    // Nothing came of it, and nothing changed.
    void expectFailure(Kind kind, const std::string& directory = {}) {
        const std::string before = test::readFile(catalogue.path);
        const auto updated = update(directory);
        ASSERT_FALSE(updated);
        EXPECT_EQ(updated.error().kind, kind);
        EXPECT_EQ(test::readFile(catalogue.path), before);
    }
    static Lines linesOf(const scan::Rescanned<scan::UnitChanges>& changes) {
        Lines lines;
        for (const auto& change : changes.value().changes())
            lines.push_back(static_cast<char>(change.kind) + changes->path(change));
        std::ranges::sort(lines);
        return lines;
    }
    // "numero summary note" of every row.
    [[nodiscard]] Lines rows() const {
        Lines lines;
        for (const auto& row : catalogue.rows())
            lines.push_back(std::to_string(row.numero) + ' ' + test::summary(row) + ' ' +
                            row.comentario.value_or("-"));
        return lines;
    }

    test::MountedDiscs discs;
    test::CatalogueFixture catalogue;
    test::Watcher watcher;
    std::function<bool()> stopped = [] { return false; };
};

TEST_F(Rescan, BringsTheUnitUpToDateAndKeepsItsNotes) {
    discs.write("disc", "a/it's", "x");
    discs.write("disc", "a/stays", "x");
    discs.write("disc", "grows", "x");
    discs.write("disc", "was file", "x");
    discs.write("disc", "goes/inner", "x");
    catalogue.add(test::unitRow("Other :", "content", "Unidad de audio"));
    scanAs("U");
    note("it´s", "it's mine");
    note("stays", "two\nlines");
    note("grows", "kept");
    note("was file", "gone with the file");
    EXPECT_EQ(linesOf(compare()), Lines());
    const Lines unchanged = rows();
    ASSERT_TRUE(update());
    EXPECT_EQ(rows(), unchanged);

    const std::string disc = discs.disc("disc");
    const auto aBefore = fs::last_write_time(disc + "/a");
    discs.write("disc", "a/comes", "x");
    fs::last_write_time(disc + "/a", aBefore);
    discs.write("disc", "grows", std::string(3000, 'x'));
    fs::remove(disc + "/was file");
    fs::create_directory(disc + "/was file");
    fs::remove_all(disc + "/goes");
    const auto touched = fs::last_write_time(disc + "/a/stays");
    fs::last_write_time(disc + "/a/stays", touched + std::chrono::seconds(2));  // FAT may round so

    const Lines differences{"+a\\comes", "+was file", "-goes", "-goes\\inner", "-was file", "~grows"};
    EXPECT_EQ(linesOf(compare()), differences);
    EXPECT_EQ(rows(), unchanged);
    EXPECT_EQ(linesOf(update()), differences);
    EXPECT_EQ(rows(), (Lines{"1 1 C:content content - - -", R"(2 1 E:\a a - - -)", R"(3 2 E:\a a comes 0 -)",
                             R"(4 2 E:\a a it´s 0 it's mine)", "5 2 E:\\a a stays 0 two\nlines",
                             R"(6 1 E:\was file was file - - -)", R"(7 1 E:\ E: grows 3 kept)"}));
    EXPECT_EQ(linesOf(compare()), Lines());
}

TEST_F(Rescan, ANoteGoesOverToANameInAnotherCaseOrIsTold) {
    for (const char* name : {"Docs/Case.TXT", "goes"}) discs.write("disc", name, "x");
    scanAs("U");
    note("Case.TXT", "kept");
    note("goes", "lost");
    const std::string disc = discs.disc("disc");
    fs::rename(disc + "/Docs/Case.TXT", disc + "/Docs/case.txt");
    fs::rename(disc + "/Docs", disc + "/docs");
    fs::rename(disc + "/goes", disc + "/elsewhere");
    const auto changes = update(disc);
    ASSERT_TRUE(changes);
    ASSERT_EQ(changes->lostNotes().size(), 1U);
    EXPECT_EQ(changes->row(changes->lostNotes()[0]).comentario, "lost");
    EXPECT_EQ(rows()[1], R"(2 2 E:\docs docs case.txt 0 kept)");

    for (const char* spelling : {"/docs/CASE.txt", "/docs/case.TXT"}) discs.write("disc", spelling, "x");
    fs::remove(disc + "/docs/case.txt");
    EXPECT_EQ(compare(disc)->lostNotes().size(), 1U) << "nobody can tell which of two it is";
}

// What stands in the catalogue after an update is what a new scan writes, and each note at its own row.
TEST_F(Rescan, TellsHostileNamesApart) {
    const auto names = test::hostileNames();
    for (const std::string& name : names) discs.write("disc", name + "/" + name, "x");
    scanAs("U");
    const auto before = catalogue.rows();
    ASSERT_EQ(before.size(), 2 * names.size());
    {
        auto database = catalogue.open();
        for (const auto& row : before) {
            const std::string numero = std::to_string(row.numero);
            ASSERT_EQ(database.Execute("update datos set comentario='" + numero + "' where numero=" + numero),
                      1);
        }
    }
    fs::remove_all(discs.disc("disc") + "/b");
    discs.write("disc", "B/late", "x");
    const Lines lines = linesOf(update());
    EXPECT_TRUE(std::ranges::includes(lines, Lines{"+B\\late", "-b", "-b\\b"}));
    EXPECT_LE(lines.size(), 4U);  // and perhaps the date of B
    const auto updated = catalogue.rows();
    std::size_t noted = 0;
    for (const auto& row : updated) {
        if (!row.comentario) continue;
        ++noted;
        EXPECT_EQ(test::summary(row), test::summary(before.at(std::stoul(*row.comentario) - 1)));
    }
    EXPECT_EQ(noted, before.size() - 2);
    {
        auto database = catalogue.open();
        ASSERT_TRUE(database.Execute("delete * from datos"));
    }
    scanAs("U");
    EXPECT_EQ(test::summaries(updated), test::summaries(catalogue.rows()));
}

TEST_F(Rescan, KeepsTheRowsOfAFolderThatCannotBeRead) {
    discs.write("disc", "a", "x");
    discs.write("disc", "locked/in/deep", "x");
    discs.write("disc", "locked/file", "x");
    scanAs("U");
    note("deep", "kept");
    const Lines before = rows();
    const std::string locked = discs.disc("disc") + "/locked";
    fs::remove(discs.disc("disc") + "/a");
    discs.write("disc", "b", "x");
    watcher.onYield = [&] {  // the folder is seen, and then cannot be entered
        fs::rename(locked, locked + ".away");
        test::writeFile(locked, "");
        return false;
    };
    EXPECT_EQ(linesOf(update()), (Lines{"+b", "-a"}));
    EXPECT_EQ(watcher.unread, Lines{R"(E:\locked)"});
    const Lines after = rows();
    ASSERT_EQ(after.size(), before.size());
    EXPECT_TRUE(std::equal(after.begin(), after.end() - 1, before.begin()));
}

TEST_F(Rescan, TakesNoAbsentMediumForAnEmptyOne) {
    discs.write("disc", "a/file", "x");
    discs.write("disc", "readme", "x");
    discs.write("disc", "third", "x");
    discs.write("other", "readme", "x");
    scanAs("U");
    note("file", "kept");
    discs.eject('E');
    expectFailure(Kind::NotFound);
    discs.insert('E', "other");
    expectFailure(Kind::NotFound);
    expectFailure(Kind::Refused, discs.disc("in no drive"));
    discs.insert('G', "empty");
    expectFailure(Kind::NotFound, discs.disc("empty"));
    expectFailure(Kind::NotFound, discs.disc("other") + "/nowhere");

    discs.insert('F', "disc");  // in another drive today: the rows tell so
    EXPECT_EQ(linesOf(compare()), Lines());
    EXPECT_EQ(linesOf(update()), Lines());
    EXPECT_EQ(rows(), (Lines{R"(1 1 F:\a a - - -)", R"(2 2 F:\a a file 0 kept)", R"(3 1 F:\ F: readme 0 -)",
                             R"(4 1 F:\ F: third 0 -)"}));
    EXPECT_EQ(linesOf(update(discs.disc("other"))), (Lines{"-a", "-a\\file", "-third"}));
}

TEST_F(Rescan, FindsAFolderWhoseNameHasApostrophesAndAccents) {
    const std::string folder = "it's/o´clock/it's";
    discs.write("disc", folder + "/file", "x");
    scanAs("U", "disc/" + folder);
    EXPECT_EQ(linesOf(update()), Lines());
}

TEST_F(Rescan, LeavesTheUnitAsItWasWhenItEndsEarly) {
    discs.write("disc", "a/file", "x");
    scanAs("U");
    discs.write("disc", "a/new", "x");
    watcher.onYield = [] { return true; };
    expectFailure(Kind::Stopped);
    watcher.onYield = nullptr;
    stopped = [] { return true; };
    expectFailure(Kind::Stopped);
    stopped = [] { return false; };
    {
        auto other = catalogue.open();
        ASSERT_TRUE(other.BeginTrans());
        expectFailure(Kind::Catalogue);
    }
    watcher.onYield = [&] {  // another program's note, while the medium is read
        note("file", "meanwhile");
        return false;
    };
    ASSERT_TRUE(update());
    EXPECT_EQ(rows()[1], R"(2 2 E:\a a file 0 meanwhile)");
}

TEST_F(Rescan, RefusesWhatNoScanMade) {
    discs.write("disc", "a", "x");
    expectFailure(Kind::NotFound);
    catalogue.add(test::unitRow("U :", "content", "Unidad de audio"));
    expectFailure(Kind::Refused, discs.disc("disc"));
    auto database = catalogue.open();
    ASSERT_TRUE(database.Execute("delete * from datos"));
    scanAs("U");
    catalogue.add(test::fileRow("u :", R"(E:\)", "twin"));
    expectFailure(Kind::Refused);
    ASSERT_TRUE(database.Execute("delete * from datos where archivo=('twin')"));
    catalogue.add(test::fileRow("U :", R"(D:\elsewhere)", "b"));
    expectFailure(Kind::Refused);
}

TEST(Exclusion, MatchesNamesWithoutRegardToCase) {
    using Pattern = std::pair<const char*, const char*>;  // and a name
    for (const auto& [pattern, name] : {Pattern{"*.TMP", "a.tmp"},
                                        {"Ñ?[a-c]*", "ñéb"},
                                        {"*", ".hidden"},
                                        {"a*b", "a\xff/b"},
                                        {"[!a]", "b"}})
        EXPECT_TRUE((scan::Exclusion{{"never", pattern}}.excludes(name))) << pattern;
    for (const auto& [pattern, name] : {Pattern{"tmp", "a.tmp"}, {"[", "a"}})
        EXPECT_FALSE((scan::Exclusion{{pattern}}.excludes(name))) << pattern;
    EXPECT_TRUE((scan::Exclusion{{}, true}).excludes(".git"));
    EXPECT_FALSE((scan::Exclusion{{}, true}).excludes("git."));
}

}  // namespace
