#include "core/catalogue_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>

#include "core/maintenance.h"
#include "core/units.h"
#include "engine/maintenance.h"
#include "support/another_program.h"
#include "support/catalogue_fixture.h"

namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

long long rowsIn(const std::string& path) {
    auto database = engine::OpenDatabase(path, engine::Use::ReadOnly);
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
        test::addRows(path, std::vector(3010, test::fileRow("Cds :", "C:\\a", "file")));
        auto database = engine::OpenDatabase(path).value();
        ASSERT_TRUE(database.Execute("delete * from datos where numero > 10"));
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

TEST_F(CatalogueFile, WhatKilledProgramsLeftIsTakenAway) {
    const std::string place = folder / "place/";
    fs::create_directory(place);
    for (const char* name : {".zarquelin-orphan", ".zarquelin-in use", ".zarquelin-longer-name"})
        writeFile(place + name, "");
    const int held = ::open((place + ".zarquelin-in use").c_str(), O_RDWR);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    writeFile(compacted, "");
    ASSERT_TRUE(core::compactCatalogue(path));
    EXPECT_TRUE(fs::is_empty(elsewhere.path()));
    ASSERT_TRUE(engine::CopyDatabase(path, place + "copy.zrq"));
    ::close(held);
    EXPECT_FALSE(fs::exists(place + ".zarquelin-orphan"));
    EXPECT_TRUE(fs::exists(place + ".zarquelin-in use"));
    EXPECT_TRUE(fs::exists(place + ".zarquelin-longer-name"));
}

TEST_F(CatalogueFile, CompactionAfterAnInterruptedChangeUndoesItFirst) {
    test::inTheMidstOfAChange(path);
    const auto done = core::compactCatalogue(path);
    ASSERT_TRUE(done) << done.error().text;
    EXPECT_EQ(rowsIn(path), 10);
}

TEST_F(CatalogueFile, AStaleCompactedFileIsNeverCopiedOverTheCatalogue) {
    ASSERT_TRUE(engine::CreateDatabase(compacted));  // a valid catalogue with no rows
    const std::string stale = readFile(compacted);
    fs::create_symlink("my.zrq", folder / "link.zrq");
    const auto size = fs::file_size(path);
    ASSERT_TRUE(core::compactCatalogue(folder / "link.zrq"));
    EXPECT_EQ(rowsIn(path), 10);
    EXPECT_LT(fs::file_size(path), size / 2);
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

TEST_F(CatalogueFile, NothingHappensWhileTheCatalogueIsOpenOrReadOnly) {
    const auto size = fs::file_size(path);
    {
        const auto open = engine::OpenDatabase(path);
        EXPECT_FALSE(core::compactCatalogue(path));
    }
    fs::permissions(path, fs::perms(0444));
    EXPECT_FALSE(core::compactCatalogue(path));
    fs::permissions(path, fs::perms(0644));
    EXPECT_TRUE(fs::is_empty(elsewhere.path()));

    EXPECT_EQ(fs::file_size(path), size);

    // A folder that is gone takes no file, not even from the superuser: the catalogue's own does.
    const std::string gone = elsewhere / "gone";
    fs::create_directory(gone);
    fs::current_path(gone);
    fs::remove(gone);
    EXPECT_TRUE(core::compactCatalogue(path));
    EXPECT_LT(fs::file_size(path), size);
    EXPECT_EQ(rowsIn(path), 10);
    EXPECT_FALSE(fs::exists(folder / std::string(core::compactedName)));
}

TEST_F(CatalogueFile, OnlyWhatNoProgramCanReadIsCopiedByteByByte) {
    const std::string copy = folder / "copy.zrq";
    test::inTheMidstOfAChange(path, [&] {
        EXPECT_EQ(core::copyCatalogue(path, copy).error().number, engine::error::locked);
        EXPECT_FALSE(fs::exists(copy));
    });
    ASSERT_TRUE(core::copyCatalogue(path, copy));
    EXPECT_EQ(rowsIn(copy), 10);
    fs::resize_file(path, fs::file_size(path) / 2);
    for (const std::string& bytes : {readFile(path), std::string("no catalogue at all")}) {
        writeFile(path, bytes);
        ASSERT_TRUE(core::copyCatalogue(path, copy));
        EXPECT_EQ(readFile(copy), bytes);
    }
}

TEST(Maintenance, AUnitsNameIsNoPatternWhenItIsDeleted) {
    const test::CatalogueFixture catalogue;
    for (const char* disco :
         {"Fotos :", "a* :", "abc :", "Cds :"})  // only a label edit lets the star through
        catalogue.add(test::fileRow(disco, "C:\\x", "f"));
    auto database = catalogue.open();
    const auto names = [&database] { return core::unitNames(database).value(); };
    ASSERT_TRUE(core::deleteUnit(database, "a* :"));
    EXPECT_EQ(names(), (std::vector<std::string>{"abc :", "Cds :", "Fotos :"}));
    ASSERT_TRUE(core::deleteUnit(database, "FOTOS :"));
    EXPECT_EQ(names(), (std::vector<std::string>{"abc :", "Cds :"}));
    EXPECT_FALSE(core::deleteUnit(database, "x') or ('a'='a"));
    ASSERT_TRUE(
        database.Execute("insert into datos (disco, tipo, largo) values ('O''Hara :','Archivo','3')"));
    EXPECT_EQ(core::units(database).value().at(2).kilobytes, 3) << "whose name no statement can carry";
    ASSERT_TRUE(core::deleteAll(database));
    EXPECT_TRUE(names().empty());
    EXPECT_EQ(core::countAll(database)->contadorunidades, 0);
}

}  // namespace
