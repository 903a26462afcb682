#include "browse/open_file.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/mounted_discs.h"
#include "support/opened_files.h"

namespace {

using core::Language;
using core::Notice;

class OpenFile : public testing::Test {
  protected:
    browse::OpenEnd open(const std::string& ruta, const std::string& name,
                         Language language = Language::Spanish) {
        return browse::openFile(
            {ruta, name}, "Fotos :", language, [this] { return discs(); },
            [this](const Notice& notice) {
                told.push_back(notice);
                if (onTell) onTell();
            });
    }

    test::MountedDiscs discs;
    test::OpenedFiles opened;
    std::vector<Notice> told;
    std::function<void()> onTell;
};

TEST_F(OpenFile, TriesTheSpellingsInOrderAndPassesTheFolder) {
    const std::string plain = discs.write("disk", "it's/plain.txt", "");
    const std::string both = discs.write("disk", "l'été/d'or.txt", "");
    const std::string onlyName = discs.write("disk", "l´été/d'or.txt", "");
    const std::string accent = discs.write("disk", "l´été/d´or.txt", "");
    const std::string inRoot = discs.write("disk", "o'clock", "");

    open("C:\\it´s", "plain.txt");
    open("C:\\l´été", "d´or.txt");
    std::filesystem::remove(accent);
    open("C:\\l´été", "d´or.txt");
    std::filesystem::remove(onlyName);
    open("C:\\l´été", "d´or.txt");
    open("C:\\", "o´clock");
    EXPECT_EQ(opened.targets, (std::vector{plain, accent, onlyName, both, inRoot}));
    EXPECT_EQ(opened.folders.front(), discs.disc("disk/it's"));
    EXPECT_EQ(opened.folders.back(), discs.disc("disk"));
    EXPECT_TRUE(told.empty());
}

TEST_F(OpenFile, AFixedDiskIsNotLookedForInOtherDrives) {
    discs.insert('D', "other", "fixed");
    discs.write("other", "a/x.txt", "");
    EXPECT_EQ(open("C:\\a", "x.txt"), browse::OpenEnd::NotFound);
    open("C:\\", "y.txt", Language::English);
    EXPECT_EQ(told, (std::vector<Notice>{{"No se encontró el archivo x.txt"},
                                         {"This file can´t be find as y.txt"}}));
    EXPECT_TRUE(opened.targets.empty());
}

TEST_F(OpenFile, AsksForTheUnitOnceAndLooksAgain) {
    discs.eject('E');
    const std::string file = discs.write("dvd", "a/x.txt", "");
    onTell = [this] { discs.insert('E', "dvd"); };
    EXPECT_EQ(open("E:\\a", "x.txt"), browse::OpenEnd::Opened);
    EXPECT_EQ(told, (std::vector<Notice>{{"Introduzca la unidad Fotos :", "Zarquelin"}}));
    EXPECT_EQ(opened.targets, std::vector{file});
    EXPECT_EQ(open("E:\\a", "gone.txt"), browse::OpenEnd::NotFound);
}

TEST_F(OpenFile, PathsThatNoDriveHoldsAreNotFound) {
    discs.write("disk", "secret", "");
    for (const char* ruta : {"C:Pelis", "", "\\", "E:\\..\\disk", "nonsense", "C:\\a\\.."})
        EXPECT_EQ(open(ruta, "secret"), browse::OpenEnd::NotFound) << ruta;
    EXPECT_EQ(open("C:\\", ".."), browse::OpenEnd::NotFound);
    EXPECT_EQ(open("C:\\", "a/../secret"), browse::OpenEnd::NotFound);
    EXPECT_EQ(open("C:\\", ""), browse::OpenEnd::NotFound);
    EXPECT_TRUE(opened.targets.empty());
}

}  // namespace
