#include <atomic>

#include "catalogue_fixture.h"
#include "engine/unit_copy.h"
#include "platform/files.h"
#include "platform/waiting.h"
#include "support/another_program.h"

namespace {

using test::inTheMidstOfAChange, test::isFreeForOthers;
using test::readFile;
using test::writeFile;

class CopyTest : public CatalogueTest {
  protected:
    CopyTest() {
        auto db = open();
        EXPECT_TRUE(db.BeginTrans());
        for (int i = 0; i < 3000; ++i) addFile(db, "E:\\x", "old" + std::to_string(i), 1, i);
        EXPECT_TRUE(db.CommitTrans());
    }

    void expectWhole(const std::string& copy) {
        EXPECT_EQ(plainly(copy, "pragma integrity_check"), "ok");
        EXPECT_EQ(plainly(copy, "select count(*) from datos where archivo like 'old%'"), "3000");
    }

    const std::string copy = folder / "copy.zrq";
};

TEST_F(CopyTest, AChangeUnderWayIsWaitedForAndNeverCopiedInPart) {
    writeFile(copy, "precious");
    inTheMidstOfAChange(path, [&] {
        const auto copied = engine::CopyDatabase(path, copy);
        ASSERT_FALSE(copied);
        EXPECT_EQ(copied.error().number, engine::error::locked);
        EXPECT_EQ(readFile(copy), "precious");
    });
    // The program has died meanwhile: its change is undone, in the copy too.
    ASSERT_TRUE(engine::CopyDatabase(path, copy));
    expectWhole(copy);
    expectWhole(path);
}

TEST_F(CopyTest, WhoWaitsIsToldHowFarItIs) {
    std::vector<double> shares;
    int signs = 0;
    const platform::Waiting waiting([&](std::optional<double> share) {
        ++signs;
        if (share) shares.push_back(*share);
    });
    const auto expectAllTold = [&] {
        ASSERT_FALSE(shares.empty());
        EXPECT_TRUE(std::ranges::is_sorted(shares));
        EXPECT_EQ(shares.back(), 1);
        shares.clear();
    };
    ASSERT_TRUE(engine::CopyDatabase(path, copy));
    expectAllTold();
    ASSERT_TRUE(engine::CompactDatabase(path, folder / "between"));
    EXPECT_LT(shares.front(), 1);
    expectAllTold();
    signs = 0;
    ASSERT_TRUE(open().Execute("update datos set comentario='x' where archivo like ('old*')"));
    EXPECT_GT(signs, 0);
    EXPECT_TRUE(shares.empty()) << "of a statement nobody knows";
    std::atomic<bool> isTold = false;
    const platform::Waiting another([&](std::optional<double>) { isTold = true, isTold.notify_all(); });
    platform::Waiting::giveSignsDuring([&] { isTold.wait(false); });
}

TEST_F(CopyTest, ACatalogueIsNotReplacedInTheMidstOfAChange) {
    ASSERT_TRUE(engine::CreateDatabase(copy));
    inTheMidstOfAChange(path, [&] {
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
    // It would be played into whatever comes to stand beside it.
    std::filesystem::create_symlink(copy + "-journal", copy + "-journal");
    std::filesystem::permissions(copy, std::filesystem::perms(0644));
    EXPECT_FALSE(engine::CopyDatabase(path, copy)) << "beside a journal that cannot be read";
    EXPECT_FALSE(engine::CopyUnreadable(path, copy));
    EXPECT_EQ(readFile(copy), "precious");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 4);
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
    EXPECT_FALSE(engine::CopyDatabase(copy, path)) << "a change that is not yet in the file counts too";
    EXPECT_TRUE(db.CommitTrans());
    db.Close();
    EXPECT_TRUE(isFreeForOthers(path));
}

TEST_F(CopyTest, AUnitIsCopiedWhileOthersWriteUntilItIsStopped) {
    const auto path = folder / "50%25 #1?mode=rw.zrq";  // nothing in a name is an option
    std::filesystem::rename(CopyTest::path, path);
    ASSERT_EQ(plainly(path, "insert into datos (disco, archivo) select 'u :', archivo from datos"), "");
    ASSERT_EQ(plainly(path, "update datos set disco = 'V :' where rowid % 10 = 0"), "");
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
    EXPECT_EQ(count(**whole, "select * from datos"), 5400 + asked);
    EXPECT_EQ(count(**whole, "select * from datos where archivo = ('late')"), asked);
    EXPECT_TRUE(column(**whole, "archivo", "select archivo from datos where archivo in ('late', 'old1')")
                    .starts_with("old1 old1 late"))
        << "in the order of the table, whichever the spelling";

    auto stopped = engine::CopyUnit(path, scratch, "U :", [] { return false; });
    ASSERT_TRUE(stopped) << stopped.error().text;
    EXPECT_FALSE(*stopped);
    EXPECT_FALSE(engine::CopyUnit(path, path, "U :", writing)) << "never over the catalogue itself";
    EXPECT_EQ(plainly(path, "pragma integrity_check"), "ok");
}

}  // namespace
