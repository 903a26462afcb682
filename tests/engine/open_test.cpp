#include <sqlite3.h>
#include <sys/stat.h>

#include "catalogue_fixture.h"
#include "platform/waiting.h"
#include "support/another_program.h"

namespace {

using test::readFile;
using test::writeFile;

using OpenTest = CatalogueTest;

int openError(const std::string& path, engine::Use use = engine::Use::Catalogue) {
    const auto opened = engine::OpenDatabase(path, use);
    return opened ? 0 : opened.error().number;
}

TEST_F(OpenTest, RefusesWhatIsNoCatalogueAndLeavesItAlone) {
    const std::string other = folder / "other.zrq";
    EXPECT_EQ(plainly(other, "create table datos (x)"), "");
    writeFile(folder / "empty.zrq", "");
    writeFile(folder / "text.zrq", std::string(5000, 'x'));
    ASSERT_EQ(::mkfifo((folder / "fifo.zrq").c_str(), 0600), 0);
    const std::string before = readFile(other);
    for (const std::string& name : {other, (folder / "empty.zrq").string(), (folder / "text.zrq").string()})
        EXPECT_EQ(openError(name), engine::error::unrecognizedFormat) << name;
    const std::string unreadable = "/proc/self/mem";  // at its beginning
    for (const std::string& name : {(folder / "fifo.zrq").string(), folder.string(), unreadable})
        EXPECT_EQ(openError(name), engine::error::cannotOpenFile) << name;
    for (const std::string& name :
         {(folder / "none.zrq").string(), std::string(), std::string(":memory:"), "file:" + path.string()})
        EXPECT_EQ(openError(name), engine::error::fileNotFound) << name;
    EXPECT_EQ(readFile(other), before);
    EXPECT_FALSE(std::filesystem::exists(folder / "none.zrq"));
}

TEST_F(OpenTest, RefusesCataloguesItCannotTrust) {
    const std::string spoilt = folder / "spoilt.zrq";
    for (const char* spoil :
         {"drop index datos_unidad; alter table datos drop column nivel; "
          "alter table datos add column nivel integer",
          "alter table datos add column extra as (hex(zeroblob(300000000)))",
          "drop index datos_unidad; alter table datos drop column disco; "
          "alter table datos add column disco text collate nocase",
          "alter table datos drop column fecha; alter table datos add column fecha",
          "alter table datos drop column largo", "drop table datos; create view datos as select 1 numero"}) {
        std::filesystem::copy_file(path, spoilt, std::filesystem::copy_options::overwrite_existing);
        EXPECT_EQ(plainly(spoilt, spoil), "");
        EXPECT_EQ(openError(spoilt), engine::error::corrupt) << spoil;
    }
    constexpr int utf16At = 59, laterVersionAt = 63;
    for (const int at : {utf16At, laterVersionAt}) {
        std::string bytes = readFile(path);
        bytes.at(at) = 2;
        writeFile(spoilt, bytes);
        EXPECT_EQ(openError(spoilt), engine::error::unrecognizedFormat) << at;
    }
}

TEST_F(OpenTest, DisarmsTriggersAndForeignModes) {
    EXPECT_EQ(plainly(path,
                      "create trigger t after insert on datos begin delete from datos; end;"
                      "drop index datos_unidad; pragma journal_mode = wal"),
              "wal");
    {
        auto db = open();
        addFile(db, "r", "a");
        EXPECT_EQ(count(db, "select * from datos"), 1);
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder)) EXPECT_EQ(entry.path(), path);
}

// The journal of a change of several databases names a second one, which SQLite deletes after it.
void leaveJournalNaming(const std::string& second, const std::string& path) {
    const std::string magic = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
    const auto number = [](std::size_t n) {
        return std::string{char(n >> 24), char(n >> 16), char(n >> 8), char(n)};
    };
    constexpr std::size_t pageSize = 8192, sector = 512, lockPage = 0x40000000 / pageSize + 1;
    std::string journal = magic + number(0) + number(1) +
                          number(std::filesystem::file_size(path) / pageSize) + number(sector) +
                          number(pageSize);
    journal.resize(sector);
    std::size_t sum = 0;
    for (const char c : second) sum += std::size_t(c);
    writeFile(path + "-journal",
              journal + number(lockPage) + second + number(second.size()) + number(sum) + magic);
}

TEST_F(OpenTest, AStrangersJournalDeletesNoFileAndKeepsNobodyWaiting) {
    const std::string precious = folder / "other.zrq-journal", journal = path.string() + "-journal";
    for (const auto use : {engine::Use::Catalogue, engine::Use::ReadOnly}) {
        writeFile(precious, "x");
        leaveJournalNaming(precious, path);
        EXPECT_EQ(openError(path, use), 0);
        EXPECT_TRUE(std::filesystem::exists(precious));
        EXPECT_FALSE(std::filesystem::exists(journal)) << "its change is undone";
    }
    ASSERT_EQ(::mkfifo(journal.c_str(), 0600), 0);
    EXPECT_EQ(openError(path), engine::error::cannotOpenFile);
}

TEST_F(OpenTest, MarksItsFilesAndCreatesOnlyNewOnes) {
    const std::string bytes = readFile(path);
    EXPECT_EQ(bytes.substr(0, 15), "SQLite format 3");
    EXPECT_EQ(bytes.substr(68, 4), "ZRQL");
    const auto again = engine::CreateDatabase(path);
    ASSERT_FALSE(again);
    EXPECT_EQ(again.error().number, engine::error::fileExists);
    EXPECT_EQ(readFile(path), bytes);
    EXPECT_FALSE(engine::CreateDatabase(folder / "no" / "b.zrq"));
}

TEST_F(OpenTest, ReadOnlyNeverWrites) {
    {
        auto db = open();
        addFile(db, "r", "a");
    }
    const std::string before = readFile(path);
    auto db = open(engine::Use::ReadOnly);
    EXPECT_EQ(errorOf(db, "delete * from datos"), engine::error::readOnly);
    EXPECT_EQ(db.BeginTrans().error().number, engine::error::readOnly);
    EXPECT_EQ(count(db, "select * from datos where archivo like 'A'"), 1);
    EXPECT_EQ(readFile(path), before);
}

TEST_F(OpenTest, TellsThatAnotherHandleHoldsTheFile) {
    auto db = open();
    addFile(db, "r", "a");
    sqlite3* holder = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &holder), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(holder, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
    int signs = 0;
    const platform::Waiting waiting([&signs](auto) { ++signs; });
    EXPECT_EQ(errorOf(db, "select * from datos order by archivo"), engine::error::locked);
    EXPECT_GT(signs, 10) << "who waits can paint";
    EXPECT_EQ(errorOf(db, "delete * from datos"), engine::error::locked);
    sqlite3_close(holder);
    EXPECT_EQ(count(db, "select * from datos"), 1);
}

// A second handle must not cost the first one its locks: closing any descriptor of a file would drop them.
TEST_F(OpenTest, ASecondHandleLeavesTheFirstOnesTransactionAlone) {
    auto db = open();
    ASSERT_TRUE(db.BeginTrans());
    addFile(db, "r", "a");
    { auto second = open(engine::Use::ReadOnly); }
    EXPECT_FALSE(test::isFreeForOthers(path));
    EXPECT_TRUE(db.CommitTrans());
}

// Another program has put another file under the name, as a restored backup would.
TEST_F(OpenTest, AReplacedFileIsFollowedUntilSomethingIsWritten) {
    auto fresh = open();
    auto used = open();
    addFile(used, "r", "a");
    const std::string other = folder / "other.zrq";
    ASSERT_TRUE(engine::CreateDatabase(other));
    std::filesystem::rename(other, path);
    addFile(fresh, "r", "b");
    EXPECT_EQ(plainly(path, "select archivo from datos"), "b");
    EXPECT_EQ(errorOf(used, "delete * from datos"), engine::error::replaced);
    EXPECT_EQ(used.BeginTrans().error().number, engine::error::replaced);
    EXPECT_EQ(count(used, "select * from datos"), 1) << "what it had is still to be read";
}

TEST_F(OpenTest, TakesValuesThatAreNoTextsForNoNames) {
    {
        auto db = open();
        for (const char* carpeta : {"a", "b", "c"}) addFolder(db, "E:\\x", carpeta, 1);
    }
    EXPECT_EQ(
        plainly(path,
                "update datos set tipo = x'41' where carpeta = 'b'; update datos set disco = x'41' where "
                "carpeta = 'c'"),
        "");
    auto db = open();
    EXPECT_EQ(column(db, "disco", "select disco from datos group by disco"), "U :");
    EXPECT_EQ(count(db, "select disco from datos group by disco"), 1);
    EXPECT_EQ(count(db, "select * from datos where disco=('U :') and tipo <>('archivo') order by carpeta"),
              2);
    EXPECT_EQ(
        column(db, "carpeta", "select * from datos where disco=('U :') and nivel=('1') order by carpeta"),
        "a b");
}

}  // namespace
