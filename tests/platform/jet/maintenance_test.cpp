#include <sqlite3.h>

#include <random>

#include "catalogue_fixture.h"

namespace {

class MaintenanceTest : public CatalogueTest {
  protected:
    // Rows of several pages and levels, with notes that are longer than a page.
    void fill(int rows) {
        auto db = open();
        ASSERT_TRUE(db.BeginTrans());
        for (int i = 0; i < rows; ++i) {
            addFile(db, "E:\\carpeta\\" + std::string(i % 50, 'x'), "f" + std::to_string(i), 1 + i % 12, i,
                    "U :", i);
        }
        run(db, "update datos set comentario='" + std::string(20'000, 'n') + "' where largo in (3, 77)");
        ASSERT_TRUE(db.CommitTrans());
    }

    static std::string check(const std::string& file) {
        sqlite3* database = nullptr;
        sqlite3_open(file.c_str(), &database);
        std::string answer;
        sqlite3_exec(
            database, "pragma integrity_check",
            [](void* out, int, char** values, char**) {
                *static_cast<std::string*>(out) += values[0];
                return 0;
            },
            &answer, nullptr);
        sqlite3_close(database);
        return answer;
    }

    long long rowsIn(const std::filesystem::path& file) {
        auto db = jet::OpenDatabase(file, jet::Use::ReadOnly);
        if (!db) return -1;
        // The text of each row tells whether it is the one that was written.
        long long whole = 0;
        auto rows = db->OpenRecordset("select * from datos order by numero");
        for (; !rows->Eof(); rows->MoveNext()) {
            whole += rows->Field("archivo").text() == "f" + std::to_string(rows->Field("numero").integer());
        }
        return whole;
    }

    std::size_t filesInFolder() const {
        return std::distance(std::filesystem::directory_iterator(folder),
                             std::filesystem::directory_iterator());
    }
};

TEST_F(MaintenanceTest, CompactionGivesSpaceBackAndKeepsRows) {
    fill(3000);
    {
        auto db = open();
        run(db, "delete * from datos where largo > (1000)");
    }
    const std::string to = folder / "compact.zrq";
    write(to, "stale");
    const auto done = jet::CompactDatabase(path, to);
    ASSERT_TRUE(done) << done.error().text;
    EXPECT_LT(std::filesystem::file_size(to), std::filesystem::file_size(path) / 2);
    EXPECT_EQ(rowsIn(to), 1001);
    EXPECT_EQ(check(to), "ok");
    EXPECT_EQ(filesInFolder(), 2u);
}

TEST_F(MaintenanceTest, CompactionThatFailsLeavesNoDestinationAndItsSourceAlone) {
    fill(100);
    const std::string to = folder / "compact.zrq";
    {
        auto db = open();
        write(to, "stale");
        EXPECT_EQ(jet::CompactDatabase(path, to).error().number, jet::error::locked);
        EXPECT_FALSE(std::filesystem::exists(to));
    }
    write(folder / "garbage.zrq", std::string(4000, 'g'));
    write(to, "stale");
    EXPECT_EQ(jet::CompactDatabase(folder / "garbage.zrq", to).error().number,
              jet::error::unrecognizedFormat);
    EXPECT_FALSE(std::filesystem::exists(to));
    EXPECT_EQ(jet::CompactDatabase(folder / "none.zrq", to).error().number, jet::error::fileNotFound);
    EXPECT_FALSE(jet::CompactDatabase(path, path));
    std::filesystem::create_hard_link(path, folder / "link.zrq");
    EXPECT_FALSE(jet::CompactDatabase(path, folder / "link.zrq"));
    EXPECT_EQ(rowsIn(path), 100);
}

TEST_F(MaintenanceTest, RepairLeavesSoundFilesAndStrangersAlone) {
    fill(100);
    const std::string before = bytesOf(path);
    EXPECT_TRUE(jet::RepairDatabase(path));
    EXPECT_EQ(bytesOf(path), before);
    const std::string text(30'000, 'x');
    write(folder / "text.txt", text);
    EXPECT_FALSE(jet::RepairDatabase(folder / "text.txt"));
    EXPECT_EQ(bytesOf(folder / "text.txt"), text);
    EXPECT_FALSE(jet::RepairDatabase(folder / "none.zrq"));
    auto db = open();
    EXPECT_EQ(jet::RepairDatabase(path).error().number, jet::error::locked);
    EXPECT_EQ(filesInFolder(), 2u);
}

// Cut at any place, a file gives back every row that lies before the cut.
TEST_F(MaintenanceTest, RepairsAFileCutAnywhere) {
    fill(2000);
    const std::string whole = bytesOf(path);
    const std::string cutFile = folder / "cut.zrq";
    std::mt19937 random(3);
    long long last = 0;
    for (std::size_t size = 8192 * 6; size < whole.size(); size += 9000 + random() % 9000) {
        write(cutFile, whole.substr(0, size));
        const auto repaired = jet::RepairDatabase(cutFile);
        ASSERT_TRUE(repaired) << size << repaired.error().text;
        EXPECT_EQ(check(cutFile), "ok");
        const long long rows = rowsIn(cutFile);
        EXPECT_GE(rows, last) << size;  // a later cut loses no row more
        last = rows;
    }
    EXPECT_GT(last, 1900);
    EXPECT_EQ(filesInFolder(), 2u);
}

// One page destroyed costs the rows of that page alone, even the root of the table's tree.
TEST_F(MaintenanceTest, RepairsAroundADestroyedPage) {
    fill(2000);
    const std::string whole = bytesOf(path);
    const std::string hurtFile = folder / "hurt.zrq";
    for (std::size_t page = 1; page * 8192 < whole.size(); ++page) {
        std::string hurt = whole;
        hurt.replace(page * 8192, 8192, std::string(8192, '\x5A'));
        write(hurtFile, hurt);
        const auto repaired = jet::RepairDatabase(hurtFile);
        ASSERT_TRUE(repaired) << page << repaired.error().text;
        EXPECT_EQ(check(hurtFile), "ok");
        EXPECT_GE(rowsIn(hurtFile), 1850) << page;
    }
    // The root and the header's free list at once.
    std::string hurt = whole;
    hurt.replace(8192, 8192, std::string(8192, '\0'));
    hurt.replace(16, 50, std::string(50, '\xff'));
    write(hurtFile, hurt);
    ASSERT_TRUE(jet::RepairDatabase(hurtFile));
    EXPECT_GE(rowsIn(hurtFile), 1990);
}

TEST_F(MaintenanceTest, RepairBringsNoDeletedRowBack) {
    fill(2000);
    {
        auto db = open();
        run(db, "delete * from datos where largo >= (100) and largo < (1500)");
    }
    std::string hurt = bytesOf(path);
    hurt.replace(8192 + 8, 200, std::string(200, '\xff'));  // within the root
    write(path, hurt);
    ASSERT_TRUE(jet::RepairDatabase(path));
    EXPECT_EQ(rowsIn(path), 600);
}

}  // namespace
