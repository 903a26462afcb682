#include "scan/walker.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <set>

#include "core/serial_date.h"
#include "platform/drives.h"
#include "scan/catalogue_fixture.h"
#include "scan/scan_request.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// Counts what it is told and stops where the test wants.
struct Watcher : scan::WalkObserver {
    std::int64_t topLevel = -1;
    int topDone = 0;
    int yields = 0;
    int statuses = 0;
    std::function<bool(scan::RowWriter&)> onYield;

    void started(std::int64_t folders) override { topLevel = folders; }
    void status(const scan::Counts&) override { ++statuses; }
    void topLevelDone() override { ++topDone; }
    bool yield(scan::RowWriter& rows) override {
        ++yields;
        return onYield && onYield(rows);
    }
};

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
        scan::RowWriter rows(database);
        return scan::Walker(rows, watcher, scan::walkStart(request, database, drives)).run();
    }
    Lines scanned(const std::string& relative) {
        scanInto("U", relative);
        return test::summaries(catalogue.rows());
    }

    test::TemporaryFolder drive;
    test::CatalogueFixture catalogue;
    Watcher watcher;
};

TEST_F(Walk, PutsSubfoldersFirstAndTurnsRoundAtTheLastLevel) {
    file("t/f");
    file("t/1/g");
    file("t/0/h");
    file("t/1/2/3/4/5/6/7/8/9/10/file10");
    file("t/1/2/3/4/5/6/7/8/9/10/11/file11");
    file("t/1/2/3/4/5/6/7/8/9/10/11/12/file12");
    folder("t/1/2/3/4/5/6/7/8/9/10/11/12/13");
    folder("t/1/2/3/4/5/6/7/8/9/10/11/12b");
    folder("t/1/2/3/4/5/6/7/8/9/10/z");

    const Lines expected{
        R"(1 E:\t\0 0 - -)",
        R"(2 E:\t\0 0 h 0)",
        R"(1 E:\t\1 1 - -)",
        R"(2 E:\t\1\2 2 - -)",
        R"(3 E:\t\1\2\3 3 - -)",
        R"(4 E:\t\1\2\3\4 4 - -)",
        R"(5 E:\t\1\2\3\4\5 5 - -)",
        R"(6 E:\t\1\2\3\4\5\6 6 - -)",
        R"(7 E:\t\1\2\3\4\5\6\7 7 - -)",
        R"(8 E:\t\1\2\3\4\5\6\7\8 8 - -)",
        R"(9 E:\t\1\2\3\4\5\6\7\8\9 9 - -)",
        R"(10 E:\t\1\2\3\4\5\6\7\8\9\10 10 - -)",
        R"(11 E:\t\1\2\3\4\5\6\7\8\9\10\11 11 - -)",
        R"(12 E:\t\1\2\3\4\5\6\7\8\9\10\11 11 file11 0)",
        R"(12 E:\t\1\2\3\4\5\6\7\8\9\10\11\12 12 - -)",
        R"(12 E:\t\1\2\3\4\5\6\7\8\9\10\11\12b 12b - -)",
        R"(11 E:\t\1\2\3\4\5\6\7\8\9\10\z z - -)",
        R"(11 E:\t\1\2\3\4\5\6\7\8\9\10 10 file10 0)",
        R"(2 E:\t\1 1 g 0)",
        R"(1 E:\t t f 0)",
    };
    const auto result = scanInto("U", "t");
    const auto rows = catalogue.rows();
    EXPECT_EQ(test::summaries(rows), expected);
    EXPECT_EQ(result.counts.folders, 15);
    EXPECT_EQ(result.counts.files, 5);
    EXPECT_EQ(result.writes.written, 20);
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
    const timespec times[2]{{1064052000, 0},
                            {1064052000, 999}};  // 20 September 2003, 10:00 in universal time
    for (const char* name : {"t/511", "t/d"}) utimensat(AT_FDCWD, at(name).c_str(), times, 0);

    EXPECT_EQ(scanned("t"), (Lines{R"(1 E:\t\d d - -)", R"(1 E:\t t 1536 2)", R"(1 E:\t t 511 0)",
                                   R"(1 E:\t t 512 0)", R"(1 E:\t t 513 1)"}));
    const auto rows = catalogue.rows();
    EXPECT_DOUBLE_EQ(rows[0].fecha, core::serialOfTime(1064052000));
    EXPECT_DOUBLE_EQ(rows[2].fecha, core::serialOfTime(1064052000));
    EXPECT_NEAR(rows[0].fecha, 37884.41666, 1);  // whatever the time zone
}

TEST_F(Walk, NamesFilesOfADriveRootByTheDrive) {
    file("f", 2048);
    file("d/g");
    EXPECT_EQ(scanned(""), (Lines{R"(1 E:\d d - -)", R"(2 E:\d d g 0)", R"(1 E:\ E: f 2)"}));
}

TEST_F(Walk, StoresHostileNamesAsData) {
    file("t's/it's/x'y''z");
    file("t's/back\\slash\\");
    file("t's/\xff\xfe");
    file("t's/new\nline \"q\" ; delete * from datos");
    EXPECT_EQ(scanned("t's"), (Lines{
                                  R"(1 E:\t´s\it´s it´s - -)",
                                  R"(2 E:\t´s\it´s it´s x´y´´z 0)",
                                  "1 E:\\t´s t´s back\uF05Cslash\uF05C 0",
                                  "1 E:\\t´s t´s new\nline \"q\" ; delete * from datos 0",
                                  "1 E:\\t´s t´s \uF0FF\uF0FE 0",
                              }));
}

TEST_F(Walk, EveryByteThatANameMayHoldComesBack) {
    std::set<std::string> names;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte == '/') continue;
        names.insert(std::string("n") + static_cast<char>(byte) + "m");
        file("t/" + *names.find(std::string("n") + static_cast<char>(byte) + "m"));
    }
    const auto result = scanInto("U", "t");
    EXPECT_EQ(result.writes.lost, 0);
    EXPECT_EQ(result.counts.files, std::ssize(names));
    const platform::Drives drives = platform::Drives::parse("E=" + drive.path());
    for (const auto& row : catalogue.rows()) {
        if (*row.archivo == "n´m") continue;  // the apostrophe is lost for good
        const auto native = drives.toNativePath(row.ruta + '\\' + *row.archivo);
        ASSERT_TRUE(native);
        EXPECT_TRUE(fs::exists(*native)) << *row.archivo;
    }
}

TEST_F(Walk, GivesLinksARowAndFollowsNone) {
    file("elsewhere/inside", 4096);
    folder("t/real");
    fs::create_directory_symlink("..", at("t/real/loop"));
    fs::create_directory_symlink(at("elsewhere"), at("t/away"));
    fs::create_symlink(at("elsewhere/inside"), at("t/tofile"));
    fs::create_symlink("nowhere", at("t/dangling"));
    fs::create_symlink("ring", at("t/ring"));
    EXPECT_EQ(scanned("t"),
              (Lines{R"(1 E:\t\away away - -)", R"(1 E:\t\real real - -)", R"(2 E:\t\real\loop loop - -)",
                     R"(1 E:\t t dangling 0)", R"(1 E:\t t ring 0)", R"(1 E:\t t tofile 4)"}));
}

TEST_F(Walk, OpensNoFifoOrSocket) {
    folder("t");
    ASSERT_EQ(mkfifo(at("t/fifo").c_str(), 0600), 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    at("t/socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(scanned("t"), (Lines{R"(1 E:\t t fifo 0)", R"(1 E:\t t socket 0)"}));
    close(socket);
}

TEST_F(Walk, GoesOnPastWhatIsUnreadableOrGone) {
    file("t/closed/f");
    file("t/gone/f");
    file("t/open/f");
    fs::permissions(at("t/closed"), fs::perms::none);
    watcher.onYield = [this](scan::RowWriter&) {
        fs::remove_all(at("t/gone"));  // listed, but not there any more
        return false;
    };
    Lines expected{R"(1 E:\t\closed closed - -)", R"(1 E:\t\open open - -)", R"(2 E:\t\open open f 0)"};
    if (geteuid() == 0) expected.insert(expected.begin() + 1, R"(2 E:\t\closed closed f 0)");
    EXPECT_EQ(scanned("t"), expected);
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
    scan::RowWriter rows(database);
    const auto result = scan::Walker(rows, watcher, {deep, "E:\\deep", "U :", 0}).run();
    EXPECT_EQ(result.counts.folders, 12);
    EXPECT_EQ(result.counts.files, 0);
    EXPECT_EQ(catalogue.rows().back().ruta.size(), std::string("E:\\deep").size() + 12 * 251);
}

TEST_F(Walk, StopsAtTheNextFolderAndKeepsWhatIsIn) {
    for (const char* name : {"t/a/1", "t/a/2", "t/b/3", "t/c/4"}) file(name);
    watcher.onYield = [this](scan::RowWriter& rows) {
        rows.commit();
        return watcher.yields == 2;
    };
    const auto result = scanInto("U", "t");
    EXPECT_TRUE(result.stopped);
    EXPECT_EQ(test::summaries(catalogue.rows()),
              (Lines{R"(1 E:\t\a a - -)", R"(2 E:\t\a a 1 0)", R"(2 E:\t\a a 2 0)", R"(1 E:\t\b b - -)"}));
}

TEST_F(Walk, ShowsItsRowsToWhoeverLooksAfterACommit) {
    for (const char* name : {"t/a/1", "t/b/2"}) file(name);
    std::vector<std::size_t> seen;
    watcher.onYield = [&](scan::RowWriter& rows) {
        rows.commit();
        seen.push_back(catalogue.rows().size());
        return false;
    };
    scanInto("U", "t");
    EXPECT_EQ(seen, (std::vector<std::size_t>{1, 3}));
}

TEST_F(Walk, LeavesNothingOfAnEmptyFolder) {
    folder("t");
    const auto result = scanInto("U", "t");
    EXPECT_EQ(watcher.topLevel, 0);
    EXPECT_TRUE(result.readable);
    EXPECT_TRUE(catalogue.rows().empty());
    EXPECT_EQ(scanInto("U", "missing").readable, false);
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

}  // namespace
