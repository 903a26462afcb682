#include <chrono>
#include <random>

#include "catalogue_fixture.h"
#include "support/another_program.h"

namespace {

using test::readFile;
using test::writeFile;

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

    long long rowsIn(const std::filesystem::path& file) {
        auto db = engine::OpenDatabase(file, engine::Use::ReadOnly);
        if (!db) return -1;
        // The text of each row tells whether it is the one that was written.
        long long whole = 0;
        auto rows = db->OpenRecordset("select * from datos order by numero");
        for (; !rows->Eof(); rows->MoveNext()) {
            whole += rows->Field("archivo").text() == "f" + std::to_string(rows->Field("numero").integer());
        }
        return whole;
    }

    // How many rows a repair gives back of a file with these bytes.
    long long repaired(const std::string& bytes) {
        const std::string hurt = folder / "hurt.zrq";
        writeFile(hurt, bytes);
        const auto done = engine::RepairDatabase(hurt);
        if (!done) ADD_FAILURE() << done.error().text;
        if (done && !done->empty()) {
            EXPECT_TRUE(readFile(*done) == bytes) << "the damaged file is not kept";
            std::filesystem::remove(*done);
        }
        const auto check = engine::CheckDatabase(hurt);
        EXPECT_TRUE(check && check->faults.empty());
        return rowsIn(hurt);
    }

    std::size_t filesInFolder() const {
        return std::distance(std::filesystem::directory_iterator(folder),
                             std::filesystem::directory_iterator());
    }
};

TEST_F(MaintenanceTest, CompactionKeepsTheFileForThoseWhoHaveItOpen) {
    fill(3000);
    EXPECT_EQ(plainly(path, "delete from datos where rowid > 100; drop index datos_unidad"), "");
    sqlite3* other = nullptr;
    sqlite3_open(path.c_str(), &other);
    const auto before = std::filesystem::file_size(path);
    const auto done = engine::CompactDatabase(path, folder / "between.zrq");
    ASSERT_TRUE(done) << done.error().text;
    EXPECT_LT(std::filesystem::file_size(path), before / 4);
    EXPECT_EQ(sqlite3_exec(other, "update datos set disco = 'late :'", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
    EXPECT_EQ(plainly(path, "select count(*) from datos where disco = 'late :'"), "100");
    EXPECT_EQ(plainly(path, "pragma integrity_check"), "ok");
    EXPECT_EQ(plainly(path, "drop index datos_unidad"), "") << "the index was there again";
    EXPECT_TRUE(engine::IsLeftByCompaction(folder / "between.zrq"));
    EXPECT_FALSE(engine::IsLeftByCompaction(path));
}

TEST_F(MaintenanceTest, RepairLeavesSoundFilesAndStrangersAlone) {
    fill(100);
    const std::string before = readFile(path);
    EXPECT_TRUE(engine::RepairDatabase(path));
    EXPECT_EQ(readFile(path), before);
    const std::string text(30'000, 'x');
    writeFile(folder / "text.txt", text);
    EXPECT_FALSE(engine::RepairDatabase(folder / "text.txt"));
    EXPECT_EQ(readFile(folder / "text.txt"), text);
    EXPECT_FALSE(engine::RepairDatabase(folder / "none.zrq"));
    auto db = open();
    EXPECT_EQ(engine::RepairDatabase(path).error().number, engine::error::locked);
    EXPECT_EQ(filesInFolder(), 2u);
}

// Cut at any place, a file gives back every row that lies before the cut.
TEST_F(MaintenanceTest, RepairsAFileCutAnywhere) {
    fill(2000);
    const std::string whole = readFile(path);
    std::mt19937 random(3);
    long long last = 0;
    for (std::size_t size = 8192 * 6; size < whole.size(); size += 9000 + random() % 9000) {
        const long long rows = repaired(whole.substr(0, size));
        EXPECT_GE(rows, last) << size;  // a later cut loses no row more
        last = rows;
    }
    EXPECT_GT(last, 1900);
    EXPECT_EQ(filesInFolder(), 2u);
}

// What is no damage is no reason to salvage: an interrupted change is undone, as whole as it was.
TEST_F(MaintenanceTest, RepairUndoesAnInterruptedChangeBeforeItLooks) {
    fill(2000);
    test::inTheMidstOfAChange(path);
    const auto done = engine::RepairDatabase(path);
    ASSERT_TRUE(done) << done.error().text;
    EXPECT_EQ(*done, "");
    EXPECT_EQ(rowsIn(path), 2000);
    EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(MaintenanceTest, EachDamagedOriginalIsKeptUnderANameOfItsOwn) {
    fill(200);
    std::string bytes = readFile(path);
    const auto link = folder / "link.zrq";
    std::filesystem::create_symlink(path, link);
    for (const char* kept : {".damaged", ".damaged-2"}) {
        std::fill_n(bytes.begin() + 8192 + 8, 50, '\xff');
        writeFile(path, bytes);
        const auto done = engine::RepairDatabase(link);
        ASSERT_TRUE(done) << done.error().text;
        EXPECT_EQ(*done, canonical(path).string() + kept);
        EXPECT_TRUE(readFile(*done) == bytes);
        EXPECT_TRUE(is_symlink(link) && readFile(path) != bytes) << "a link stays a link";
    }
}

// Thousands of cells that all lead to one chain of pages without an end, or to one cell.
TEST_F(MaintenanceTest, RepairingTakesNoLongerThanTheFileIsLong) {
    fill(500);
    std::string bomb = readFile(path).substr(0, 4 * 8192);
    const auto put = [&](std::size_t at, unsigned value, int size) {
        for (int i = size - 1; i >= 0; --i, value >>= 8) bomb[at + i] = static_cast<char>(value);
    };
    const std::size_t leaf = 8192;
    put(leaf, 0x0D, 1);
    put(leaf + 3, 2000, 2);
    // A payload of 2^25 bytes that goes on in page 3, which leads to itself.
    const std::string cell("\x90\x80\x80\x00\x05", 5);
    bomb.replace(leaf + 4100, cell.size(), cell);
    for (std::size_t i = 0; i < 2000; ++i) put(leaf + 8 + 2 * i, 4100, 2);
    put(leaf + 4100 + cell.size() + 1003, 3, 4);
    put(2 * 8192, 3, 4);
    writeFile(folder / "bomb.zrq", bomb);
    std::filesystem::resize_file(folder / "bomb.zrq", std::uintmax_t{1} << 42);  // nearly all hole
    const auto start = std::chrono::steady_clock::now();
    (void)engine::RepairDatabase(folder / "bomb.zrq");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

// One page destroyed is told, and costs the rows of that page alone, even the root of the table's tree.
TEST_F(MaintenanceTest, RepairsAroundADestroyedPage) {
    fill(2000);
    const std::string whole = readFile(path);
    for (std::size_t page = 1; page * 8192 < whole.size(); ++page) {
        std::string hurt = whole;
        hurt.replace(page * 8192, 8192, std::string(8192, '\x5A'));
        writeFile(folder / "hurt.zrq", hurt);
        const auto check = engine::CheckDatabase(folder / "hurt.zrq");
        ASSERT_TRUE(check) << check.error().text;
        EXPECT_TRUE(!check->faults.empty() && check->faults.size() <= 102u) << page;
        EXPECT_GE(repaired(hurt), 1850) << page;
    }
    // The root and the header's free list at once.
    std::string hurt = whole;
    hurt.replace(8192, 8192, std::string(8192, '\0'));
    hurt.replace(16, 50, std::string(50, '\xff'));
    EXPECT_GE(repaired(hurt), 1990);
    // A row that is longer than any may be costs no other.
    EXPECT_EQ(plainly(path, "update datos set comentario = zeroblob(20000000) where rowid = 5"), "");
    hurt = readFile(path);
    hurt.replace(8192, 8192, std::string(8192, '\0'));
    EXPECT_EQ(repaired(hurt), 1999);
}

TEST_F(MaintenanceTest, WhatCheckFindsIsMended) {
    fill(2000);
    const auto sound = engine::CheckDatabase(path);
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->faults, std::vector<std::string>());
    EXPECT_EQ(sound->rows, 2000);
    EXPECT_EQ(plainly(path,
                      "update datos set disco = null, tipo = null where rowid = 5; update datos set largo = "
                      "'much', comentario = x'41', carpeta = cast(x'ff2e00e1' as text) where rowid = 7"),
              "");
    EXPECT_EQ(engine::CheckDatabase(path)->faults,
              (std::vector<std::string>{"row 7: carpeta is no UTF-8 text", "row 7: largo is no number",
                                        "row 7: comentario is no text"}));
    std::string bytes = readFile(path);
    EXPECT_EQ(repaired(bytes), 2000);
    EXPECT_EQ(plainly(folder / "hurt.zrq",
                      "select hex(carpeta) || comentario || (largo is null) from datos where rowid = 7"),
              "EF83BF2EEF8080EF83A1A1");
    bytes[71] ^= 2;  // the mark
    EXPECT_EQ(repaired(bytes), 2000);
    bytes = readFile(path);
    bytes[63] = 2;  // the format
    writeFile(path, bytes);
    EXPECT_EQ(engine::RepairDatabase(path).error().number, engine::error::unrecognizedFormat);
    EXPECT_TRUE(readFile(path) == bytes);
    EXPECT_EQ(engine::CheckDatabase(folder / "missing.zrq").error().number, engine::error::fileNotFound);
}

TEST_F(MaintenanceTest, RepairBringsNoDeletedRowBack) {
    fill(2000);
    {
        auto db = open();
        run(db, "delete * from datos where largo >= (100) and largo < (1500)");
    }
    std::string hurt = readFile(path);
    hurt.replace(8192 + 8, 200, std::string(200, '\xff'));  // within the root
    EXPECT_EQ(repaired(hurt), 600);
}

// One wrong bit or byte in a row's cell or in the pointer to it, and what the row is still told by.
TEST_F(MaintenanceTest, RepairKeepsARowWithADamagedCell) {
    fill(5);
    const std::string whole = readFile(path);
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(whole[at]); };
    const std::size_t page = 8192, pointer = page + 8 + 2 * 2;  // the root is a leaf; its third row
    const std::size_t cell = page + byte(pointer) * 256u + byte(pointer + 1);
    const std::size_t length = cell, number = cell + 1, level = cell + 7;
    for (const auto& [what, at, value] : {std::tuple{"another row's number", number, byte(number) - 1},
                                          {"a pointer beyond the page", pointer, byte(pointer) | 0x80},
                                          {"a length beyond the row", length, byte(length) + 3},
                                          {"a text of bytes", level, 14}}) {
        std::string hurt = whole;
        ASSERT_NE(byte(at), value);
        hurt[at] = static_cast<char>(value);
        EXPECT_EQ(repaired(hurt), 5) << what;
    }
}

}  // namespace
