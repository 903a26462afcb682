#include "core/catalogue_file.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "platform/jet/database.h"
#include "platform/jet/maintenance.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

void insertRows(jet::Database& database, int count) {
    jet::Transaction transaction(database);
    ASSERT_TRUE(transaction.begin());
    for (int i = 1; i <= count; ++i) {
        const core::CatalogRow row{.numero = i,
                                   .ruta = "C:\\a",
                                   .carpeta = "a",
                                   .archivo = "file " + std::to_string(i),
                                   .nivel = "2",
                                   .fecha = 38000,
                                   .largo = 1,
                                   .tipo = std::string(core::fileTipo),
                                   .disco = "Cds :",
                                   .comentario = {}};
        ASSERT_TRUE(database.Execute(core::insertFile(row)));
    }
    ASSERT_TRUE(transaction.commit());
}

long long rowsIn(const std::string& path) {
    auto database = jet::OpenDatabase(path, jet::Use::ReadOnly);
    if (!database) return -1;
    auto rows = database->OpenRecordset("select * from datos");
    return rows ? rows->RecordCount() : -1;
}

// A catalogue with 10 rows and the space of 3000 deleted ones, and another folder to be in.
struct CatalogueFile : testing::Test {
    test::TemporaryFolder folder;
    test::TemporaryFolder elsewhere;
    const std::string path = folder / "my.zrq";
    const std::string compacted = elsewhere / "compactada.zrq";
    const fs::path before = fs::current_path();

    void SetUp() override {
        fs::current_path(elsewhere.path());
        ASSERT_TRUE(core::createCatalogue(path));
        auto database = jet::OpenDatabase(path);
        ASSERT_TRUE(database) << database.error().text;
        ASSERT_NO_FATAL_FAILURE(insertRows(*database, 3010));
        ASSERT_TRUE(database->Execute("delete * from datos where numero > 10"));
    }
    void TearDown() override { fs::current_path(before); }
};

TEST(ScratchPath, ReplacesEveryOccurrenceOfTheFileName) {
    EXPECT_EQ(core::scratchPath("/home/ana/my.zrq"), "/home/ana/temp.ejm");
    EXPECT_EQ(core::scratchPath("my.zrq"), "temp.ejm");
    EXPECT_EQ(core::scratchPath("/b/my.zrq/my.zrq"), "/b/temp.ejm/temp.ejm");
    EXPECT_EQ(core::scratchPath("/a/temp.ejm"), "");

    const test::TemporaryFolder folder;
    writeFile(folder / "my.zrq", "");
    fs::create_symlink("my.zrq", folder / "temp.ejm");
    EXPECT_EQ(core::scratchPath(folder / "my.zrq"), "") << "what is deleted there would be deleted here";
}

TEST_F(CatalogueFile, ANewOneIsEmptyWritableAndReplacesWhatWasThere) {
    ASSERT_EQ(rowsIn(path), 10);
    ASSERT_TRUE(core::createCatalogue(path));
    EXPECT_EQ(rowsIn(path), 0);
    EXPECT_NE(fs::status(path).permissions() & fs::perms::owner_write, fs::perms::none);
    EXPECT_FALSE(core::createCatalogue(folder / "no/my.zrq"));
}

TEST_F(CatalogueFile, CompactionKeepsRowsPermissionsAndLinks) {
    const auto size = fs::file_size(path);
    fs::permissions(path, fs::perms(0640));
    fs::create_symlink("my.zrq", folder / "link.zrq");
    const auto done = core::compactCatalogue(folder / "link.zrq");
    ASSERT_TRUE(done) << done.error().text;
    EXPECT_EQ(rowsIn(path), 10);
    EXPECT_LT(fs::file_size(path), size / 2);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
    EXPECT_TRUE(fs::is_symlink(folder / "link.zrq"));
    EXPECT_TRUE(fs::is_empty(elsewhere.path()));
}

TEST_F(CatalogueFile, AStaleCompactedFileIsNeverCopiedOverTheCatalogue) {
    ASSERT_TRUE(jet::CreateDatabase(compacted));  // a valid catalogue with no rows
    const std::string stale = readFile(compacted);
    ASSERT_TRUE(core::compactCatalogue(path));
    EXPECT_EQ(rowsIn(path), 10);
    EXPECT_EQ(readFile(compacted), stale);

    writeFile(compacted, "somebody's notes");
    writeFile(path, "no catalogue at all");
    EXPECT_FALSE(core::compactCatalogue(path));
    EXPECT_EQ(readFile(path), "no catalogue at all");
    EXPECT_EQ(readFile(compacted), "somebody's notes");
    EXPECT_FALSE(core::compactCatalogue(folder / "gone.zrq"));
}

TEST_F(CatalogueFile, ACatalogueOfThatVeryNameIsCompactedToo) {
    fs::rename(path, compacted);
    ASSERT_TRUE(core::compactCatalogue(compacted));
    EXPECT_EQ(rowsIn(compacted), 10);
    EXPECT_EQ(std::distance(fs::directory_iterator(elsewhere.path()), {}), 1);
}

TEST_F(CatalogueFile, NothingHappensWhileTheCatalogueIsOpenOrReadOnlyOrNowhereToGo) {
    const auto size = fs::file_size(path);
    {
        const auto open = jet::OpenDatabase(path);
        ASSERT_TRUE(open);
        const auto refused = core::compactCatalogue(path);
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.error().number, jet::error::locked);
    }
    fs::permissions(path, fs::perms(0444));
    EXPECT_FALSE(core::compactCatalogue(path));
    fs::permissions(path, fs::perms(0644));
    EXPECT_TRUE(fs::is_empty(elsewhere.path()));

    // A folder that is gone takes no file, not even from the superuser.
    const std::string gone = elsewhere / "gone";
    fs::create_directory(gone);
    fs::current_path(gone);
    fs::remove(gone);
    EXPECT_FALSE(core::compactCatalogue(path));
    EXPECT_EQ(fs::file_size(path), size);
    EXPECT_EQ(rowsIn(path), 10);
}

// Holds a catalogue in the middle of a change, in another process, until it is released.
class OtherProgram {
  public:
    explicit OtherProgram(const std::string& path) {
        int ready[2], release[2];
        if (::pipe(ready) != 0 || ::pipe(release) != 0) return;
        m_child = ::fork();
        if (m_child == 0) {
            ::close(release[1]);
            auto database = jet::OpenDatabase(path);
            if (!database || !database->BeginTrans()) ::_exit(1);
            if (!database->Execute("insert into datos (numero,ruta,disco) values (11,'C:\\a','Cds :')"))
                ::_exit(1);
            char byte = 0;
            if (::write(ready[1], &byte, 1) != 1 || ::read(release[0], &byte, 1) != 0) ::_exit(1);
            ::_exit(database->CommitTrans() ? 0 : 1);
        }
        ::close(ready[1]);
        ::close(release[0]);
        char byte = 0;
        isReady = ::read(ready[0], &byte, 1) == 1;
        ::close(ready[0]);
        m_release = release[1];
    }
    int finish() {
        ::close(m_release);
        int status = -1;
        ::waitpid(m_child, &status, 0);
        return status;
    }
    bool isReady = false;

  private:
    pid_t m_child = -1;
    int m_release = -1;
};

TEST_F(CatalogueFile, CompactionLosesNothingThatAnotherProgramIsWriting) {
    OtherProgram other(path);
    ASSERT_TRUE(other.isReady);
    const auto refused = core::compactCatalogue(path);
    EXPECT_EQ(other.finish(), 0);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().number, jet::error::locked) << refused.error().text;
    EXPECT_EQ(rowsIn(path), 11);
    EXPECT_TRUE(core::compactCatalogue(path));
    EXPECT_EQ(rowsIn(path), 11);
}

}  // namespace
