#include "core/lookup.h"

#include <gtest/gtest.h>

#include "support/catalogue_fixture.h"

namespace {

using core::FoundRow;
using core::LookupFailure;

// A disc scanned from /media/disc/top as the unit "Fotos", and what lies beside it.
class Lookup : public testing::Test {
  protected:
    Lookup() {
        const auto folder = [](const char* ruta) { return rowOf(test::folderRow("Fotos :", ruta)); };
        const auto file = [](const char* ruta, const char* name) {
            return rowOf(test::fileRow("Fotos :", ruta, name));
        };
        catalogue.add({folder("E:\\top\\A"), file("E:\\top\\A", "in.txt"), folder("E:\\top\\:"),
                       file("E:\\top\\:", "colon.txt"), file("E:\\top", "it´s.txt"),
                       file("E:\\top", "It´S.txt"), file("E:\\top", "a"), file("E:\\top", "b.TXT"),
                       file("E:\\top", "B.txt"), file("E:\\top", "ÑANDÚ"), file("E:\\top", "raw\uF0FF"),
                       file("E:\\top", "back\uF05Cslash"), folder("E:\\top\\both"), file("E:\\top", "both"),
                       folder("E:\\top\\Cds :"), test::unitRow("Cds :", "Pelis", "Unidad de video"),
                       test::unitRow("cds :", "Otra", "x"),
                       test::unitRow("it´s :", "Una", "Unidad de audio")});
        catalogue.add({file("E:\\top", "end\uF05C"), file("E:\\top\\A\uF05C", "in.txt")});
    }
    // The folder that was catalogued is no part of the level.
    static core::CatalogRow rowOf(core::CatalogRow row) {
        row.nivel = std::to_string(std::stoi(row.nivel) - 1);
        return row;
    }

    // The path of the row that is found, in drive form; else what is said instead.
    std::string found(std::string_view path, FoundRow::Kind preferred = FoundRow::File,
                      const std::string& disco = "Fotos :") {
        const auto row = core::findRow(database, disco, path, drives, preferred);
        if (row) return row->kind == FoundRow::Unit ? "unit" : core::drivePathOf(row->row);
        if (row.error().kind == LookupFailure::Missing) return "missing";
        std::string all = "several";
        for (const std::string& candidate : row.error().candidates) all += ' ' + candidate;
        return all;
    }

    test::CatalogueFixture catalogue;
    engine::Database database = catalogue.open(engine::Use::ReadOnly);
    platform::Drives drives = platform::Drives::parse("E=/media/disc;F=/media/other");
};

TEST_F(Lookup, TakesAPathInEveryForm) {
    for (const char* path : {"A/in.txt", "A\\in.txt", "./A//in.txt", "\\A\\in.txt", "/A/in.txt", "a/IN.txt",
                             "E:\\top\\A\\in.txt", "e:/top/A/in.txt", "/media/disc/top/A/in.txt",
                             "/media/disc/x/../top//A/in.txt", "/media/other/top/A/in.txt"})
        EXPECT_EQ(found(path), "E:\\top\\A\\in.txt") << path;
    for (const char* path : {"raw\xff", "raw\uF0FF", "/media/disc/top/raw\xff", "E:\\top\\raw\xff"})
        EXPECT_EQ(found(path), "E:\\top\\raw\uF0FF") << path;
    for (const char* path : {"back\uF05Cslash", "/media/disc/top/back\\slash", "back\\slash"})
        EXPECT_EQ(found(path), "E:\\top\\back\uF05Cslash") << path;
    for (const char* path : {"end\\", "/media/disc/top/end\\"})
        EXPECT_EQ(found(path), "E:\\top\\end\uF05C") << path;
    EXPECT_EQ(found("A\\/in.txt"), "E:\\top\\A\uF05C\\in.txt");
    EXPECT_EQ(found(":/colon.txt"), "E:\\top\\:\\colon.txt");
    EXPECT_EQ(found("ñandú"), "E:\\top\\ÑANDÚ");
    for (const char* path : {"", "/", ".", "E:\\top", "e:\\TOP\\", "/media/disc/top/"})
        EXPECT_EQ(found(path), "unit") << path;
    for (const char* path : {"in.txt", "A/in", "a/in.txt/", "A\\in.txt\\", "E:\\A\\in.txt",
                             "/media/disc/A/in.txt", "top", "..", "'); delete * from datos", "\xff"})
        EXPECT_EQ(found(path), "missing") << path;
}

TEST_F(Lookup, BytesWinOverCaseAndApostrophes) {
    EXPECT_EQ(found("a"), "E:\\top\\a");
    EXPECT_EQ(found("A"), "E:\\top\\A");
    EXPECT_EQ(found("b.TXT"), "E:\\top\\b.TXT");
    EXPECT_EQ(found("b.txt"), "several E:\\top\\B.txt E:\\top\\b.TXT");
    EXPECT_EQ(found("it's.txt"), "E:\\top\\it´s.txt");
    EXPECT_EQ(found("both"), "E:\\top\\both");
    EXPECT_EQ(core::findRow(database, "Fotos :", "both", drives, FoundRow::File)->kind, FoundRow::File);
    EXPECT_EQ(core::findRow(database, "Fotos :", "both", drives, FoundRow::Folder)->kind, FoundRow::Folder);
    EXPECT_EQ(core::findRow(database, "Fotos :", "both/", drives, FoundRow::File)->kind, FoundRow::Folder);
    EXPECT_EQ(core::findRow(database, "Fotos :", "it's.txt", drives, FoundRow::File)->withApostrophes, true);
    EXPECT_EQ(core::findRow(database, "Fotos :", "it´s.txt", drives, FoundRow::File)->withApostrophes, false);
    EXPECT_EQ(core::findRow(database, "Fotos :", "A/in.txt", drives, FoundRow::File)->folders,
              std::vector<std::string>{"A"});
}

TEST_F(Lookup, FindsUnitsAndTheRowsOfHandMadeOnes) {
    EXPECT_EQ(core::findUnit(database, "Fotos"), "Fotos :");
    EXPECT_EQ(core::findUnit(database, "fOTOS"), "Fotos :");
    EXPECT_EQ(core::findUnit(database, "cds"), "cds :");
    EXPECT_EQ(core::findUnit(database, "it's"), "it´s :");
    EXPECT_EQ(core::findUnit(database, "CDS").error().candidates.size(), 2);
    EXPECT_EQ(core::findUnit(database, "Foto").error().kind, LookupFailure::Missing);
    for (const char* path : {"Pelis", "C:Pelis", "c:pelis"})
        EXPECT_EQ(found(path, FoundRow::File, "Cds :"), "C:Pelis") << path;
    EXPECT_EQ(found("Pelis", FoundRow::File, "cds :"), "missing") << "a unit that differs in case";
    EXPECT_EQ(found("Cds :", FoundRow::Folder), "E:\\top\\Cds :") << "a folder that bears a unit's name";
}

}  // namespace
