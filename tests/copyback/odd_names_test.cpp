#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "copyback/copy_run.h"
#include "core/locate.h"
#include "support/catalogue_fixture.h"
#include "support/hostile_names.h"
#include "support/mounted_discs.h"
#include "support/run_command.h"

namespace {

namespace fs = std::filesystem;

struct ScannedFiles : copyback::ItemReader {
    std::vector<core::CatalogRow> rows;
    int count() const override { return int(rows.size()); }
    bool isSelected(int) const override { return true; }
    copyback::Item item(int position) const override {
        const core::CatalogRow& row = rows.at(std::size_t(position));
        return {row.archivo.value_or(row.carpeta), row.tipo, row.disco, row.ruta};
    }
};

TEST(OddNames, AreScannedFoundInAnotherDriveAndCopiedByteForByte) {
    test::MountedDiscs discs;
    discs.insert('E', "dvd", "removable");
    const std::string folder = discs.disc("dvd/it's \xff odd");
    std::set<std::string> expected;
    for (const std::string& name : test::hostileNames()) {
        test::writeFile(folder + '/' + name, "bytes of " + name);
        expected.insert(name);
    }
    const test::CatalogueFixture catalogue;
    ::setenv("ZARQUELIN_DRIVES", ("E=" + discs.disc("dvd")).c_str(), 1);
    ASSERT_EQ(test::runCommand({"scan", catalogue.path, "Odd", folder}).status, cli::Done);
    ScannedFiles list, none;
    list.rows = catalogue.rows();
    ASSERT_EQ(list.count(), std::ssize(expected));

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
