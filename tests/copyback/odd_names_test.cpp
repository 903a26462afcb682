#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <set>

#include "copyback/copy_run.h"
#include "copyback/locate.h"
#include "scan/catalogue_fixture.h"
#include "scan/row_writer.h"
#include "scan/scan_request.h"
#include "scan/walker.h"
#include "support/mounted_discs.h"

namespace {

namespace fs = std::filesystem;

// Names as no sane person gives them, each with its number in it so that all differ.
std::vector<std::string> oddNames() {
    const std::string pieces[] = {"'",
                                  "\\",
                                  "\n",
                                  " ",
                                  "\xff",
                                  "\xc3",
                                  "\xc3\xb1",
                                  "\"",
                                  "*?[#",
                                  ";--",
                                  "%",
                                  "\t",
                                  "\xef\x80\xa7",
                                  "\xf0\x9f\x98\x80",
                                  "\xed\xa0\x80",
                                  ".",
                                  "..",
                                  "\x01",
                                  "\x7f",
                                  "E:",
                                  "$(x)"};
    std::mt19937 random(20040229);
    std::vector<std::string> names;
    for (int number = 0; number < 200; ++number) {
        std::string name = std::to_string(number);
        for (unsigned length = random() % 8; length > 0; --length) {
            const std::string& piece = pieces[random() % std::size(pieces)];
            name = random() % 2 ? name + piece : piece + name;
        }
        if (number % 10 == 0) name.resize(255, number % 20 ? '\'' : '\xe9');
        names.push_back(name);
    }
    names.insert(names.end(), {" ", "'", "\\", "-rf", "~", "...", "C:\\x", "\xc2\xb4 alone"});
    return names;
}

struct ScannedFiles : copyback::ItemReader {
    std::vector<core::CatalogRow> rows;
    int count() const override { return int(rows.size()); }
    bool isSelected(int) const override { return true; }
    copyback::Item item(int position) const override {
        const core::CatalogRow& row = rows.at(std::size_t(position));
        return {row.archivo.value_or(row.carpeta), row.tipo, row.disco, row.ruta};
    }
};

struct Silent : scan::WalkObserver {
    void started(std::int64_t) override {}
    void status(const scan::Counts&) override {}
    void topLevelDone() override {}
    bool yield(scan::RowWriter&) override { return false; }
};

std::vector<core::CatalogRow> scanned(const std::string& folder, const platform::Drives& drives) {
    const test::CatalogueFixture catalogue;
    {
        auto database = catalogue.open();
        Silent observer;
        scan::RowWriter rows(database);
        (void)scan::Walker(rows, observer, scan::walkStart({"Odd", folder}, database, drives)).run();
        rows.commit();
        EXPECT_EQ(rows.summary().lost, 0);
    }
    return catalogue.rows();
}

TEST(OddNames, AreScannedFoundInAnotherDriveAndCopiedByteForByte) {
    test::MountedDiscs discs;
    discs.insert('E', "dvd", "removable");
    const std::string folder = discs.disc("dvd/it's \xff odd");
    std::set<std::string> expected;
    for (const std::string& name : oddNames()) {
        test::writeFile(folder + '/' + name, "bytes of " + name);
        expected.insert(name);
    }
    ASSERT_EQ(expected.size(), 208u);
    ScannedFiles list, none;
    list.rows = scanned(folder, discs());
    ASSERT_EQ(list.count(), 208);

    discs.eject('E');
    discs.insert('K', "dvd", "removable");
    const std::string target = discs.disc("target \xfe");
    std::vector<std::string> told;
    const copyback::CopyRequest request{none, list, true, 0, target};
    const auto end = copyback::copyFiles(
        request,
        {[&] { return discs(); }, [&](const core::Notice& notice) { told.push_back(notice.text); },
         [](const std::string& from, const std::string& to) { return platform::CopyFile(from, to); }});
    EXPECT_EQ(end, copyback::RunEnd::Complete);
    EXPECT_EQ(told, std::vector<std::string>{"El copiado de archivos a finalizado exitosamente."});

    std::set<std::string> copied;
    for (const fs::directory_entry& entry : fs::directory_iterator(target)) {
        const std::string name = entry.path().filename();
        copied.insert(name);
        EXPECT_EQ(test::readFile(entry.path()), "bytes of " + name);
        EXPECT_EQ(entry.last_write_time(), fs::last_write_time(folder + '/' + name));
    }
    EXPECT_EQ(copied, expected);
}

}  // namespace
