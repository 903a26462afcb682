#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "catalogue_fixture.h"
#include "engine/unit_copy.h"
#include "platform/files.h"

namespace {

using test::readFile;
using test::writeFile;

// Whether another program could begin a change of the file now.
bool isFreeForOthers(const std::string& path) {
    const pid_t child = ::fork();
    if (child == 0) {
        sqlite3* other = nullptr;
        sqlite3_open(path.c_str(), &other);
        ::_exit(sqlite3_exec(other, "begin immediate", nullptr, nullptr, nullptr) == SQLITE_BUSY ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0;
}

class CopyTest : public CatalogueTest {
  protected:
    CopyTest() {
        auto db = open();
        EXPECT_TRUE(db.BeginTrans());
        for (int i = 0; i < 3000; ++i) addFile(db, "E:\\x", "old" + std::to_string(i), 1, i);
        EXPECT_TRUE(db.CommitTrans());
    }

    // A change so large that it is already written into the file before it is committed, held at that point
    // or left there by a program that died.
    void inTheMidstOfAChange(const std::function<void()>& act) {
        int ready[2], finish[2];
        ASSERT_EQ(::pipe(ready) + ::pipe(finish), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            ::close(finish[1]);
            sqlite3* other = nullptr;
            sqlite3_open(path.c_str(), &other);
            const int code = sqlite3_exec(other,
                                          "pragma cache_size = 5; begin; update datos set archivo = 'new', "
                                          "ruta = hex(zeroblob(200))",
                                          nullptr, nullptr, nullptr);
            char byte = code == SQLITE_OK ? 1 : 0;
            if (::write(ready[1], &byte, 1) != 1 || ::read(finish[0], &byte, 1) < 0) ::_exit(1);
            ::_exit(0);  // without a way back: the journal stays
        }
        ::close(finish[0]);
        char byte = 0;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        ASSERT_EQ(byte, 1);
        act();
        ::close(finish[1]);
        ::waitpid(child, nullptr, 0);
        for (const int end : {ready[0], ready[1]}) ::close(end);
    }

    void expectWhole(const std::string& copy) {
        EXPECT_EQ(plainly(copy, "pragma integrity_check"), "ok");
        EXPECT_EQ(plainly(copy, "select count(*) from datos where archivo like 'old%'"), "3000");
    }

    const std::string copy = folder / "copy.zrq";
};

TEST_F(CopyTest, AChangeUnderWayIsWaitedForAndNeverCopiedInPart) {
    writeFile(copy, "precious");
    inTheMidstOfAChange([&] {
        const auto copied = engine::CopyDatabase(path, copy);
        ASSERT_FALSE(copied);
        EXPECT_EQ(copied.error().number, engine::error::locked);
        EXPECT_EQ(readFile(copy), "precious");
    });
    // The program has died meanwhile: its change is undone, in the copy too.
    ASSERT_TRUE(std::filesystem::exists(path.string() + "-journal"));
    ASSERT_TRUE(engine::CopyDatabase(path, copy));
    expectWhole(copy);
    expectWhole(path);
}

TEST_F(CopyTest, ACatalogueIsNotReplacedInTheMidstOfAChange) {
    ASSERT_TRUE(engine::CreateDatabase(copy));
    inTheMidstOfAChange([&] {
        for (const auto& copied : {engine::CopyDatabase(copy, path), engine::CopyUnreadable(copy, path)}) {
            ASSERT_FALSE(copied);
            EXPECT_EQ(copied.error().number, engine::error::locked);
        }
    });
    expectWhole(path);
    ASSERT_TRUE(engine::CopyDatabase(copy, path));
    EXPECT_EQ(plainly(path, "select count(*) from datos"), "0");
}

TEST_F(CopyTest, RefusalsLeaveTheDestinationAndNothingBeside) {
    writeFile(folder / "text", std::string(300, 't'));
    writeFile(copy, "precious");
    EXPECT_EQ(engine::CopyDatabase(folder / "text", copy).error().number, engine::error::unrecognizedFormat);
    EXPECT_EQ(engine::CopyDatabase(folder / "none", copy).error().number, engine::error::fileNotFound);
    EXPECT_FALSE(engine::CopyDatabase(path, path));
    std::filesystem::permissions(copy, std::filesystem::perms(0444));
    EXPECT_EQ(engine::CopyDatabase(path, copy).error().number, engine::error::readOnly);
    EXPECT_EQ(readFile(copy), "precious");
    EXPECT_FALSE(engine::CopyDatabase(path, folder / "no" / "copy.zrq"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 3);
}

// A journal that belongs to a file of this name that is gone would be played into the copy.
TEST_F(CopyTest, AForeignJournalAtTheDestinationIsTakenAway) {
    inTheMidstOfAChange([] {});
    std::filesystem::rename(path.string() + "-journal", copy + "-journal");
    ASSERT_TRUE(engine::CreateDatabase(folder / "other.zrq"));
    ASSERT_TRUE(engine::CopyDatabase(folder / "other.zrq", copy));
    EXPECT_EQ(plainly(copy, "select count(*) from datos"), "0");
}

TEST_F(CopyTest, CopyingAFilesBytesLeavesTheLocksOfThisProcessAlone) {
    auto db = open();
    ASSERT_TRUE(db.BeginTrans());
    addFile(db, "r", "a");
    ASSERT_TRUE(platform::CopyFile(path, copy));
    EXPECT_FALSE(isFreeForOthers(path));
    ASSERT_TRUE(engine::CopyDatabase(path, copy));
    EXPECT_FALSE(isFreeForOthers(path));
    expectWhole(copy);  // without the change
    EXPECT_TRUE(db.CommitTrans());
    db.Close();
    EXPECT_TRUE(isFreeForOthers(path));
}

TEST_F(CopyTest, AUnitIsCopiedWhileOthersWriteUntilItIsStopped) {
    ASSERT_EQ(plainly(path, "insert into datos (disco, archivo) select 'u :', archivo from datos"), "");
    ASSERT_EQ(plainly(path, "insert into datos (disco, archivo) values ('V :', 'foreign')"), "");
    const std::string scratch = folder / "temp.ejm";
    int asked = 0;
    const auto writing = [&] {
        EXPECT_EQ(plainly(path, "insert into datos (disco, archivo) values ('U :', 'late')"), "");
        return ++asked < 100;
    };
    auto whole = engine::CopyUnit(path, scratch, "U :", writing);
    ASSERT_TRUE(whole) << whole.error().text;
    ASSERT_TRUE(*whole);
    EXPECT_GT(asked, 0);
    EXPECT_EQ(count(**whole, "select * from datos"), 6000 + asked);
    EXPECT_EQ(count(**whole, "select * from datos where archivo = ('late')"), asked);

    auto stopped = engine::CopyUnit(path, scratch, "U :", [] { return false; });
    ASSERT_TRUE(stopped) << stopped.error().text;
    EXPECT_FALSE(*stopped);
    EXPECT_FALSE(engine::CopyUnit(path, path, "U :", writing)) << "never over the catalogue itself";
    EXPECT_EQ(plainly(path, "pragma integrity_check"), "ok");
}

}  // namespace
