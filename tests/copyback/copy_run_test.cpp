#include "copyback/copy_run.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "support/mounted_discs.h"

namespace {

namespace fs = std::filesystem;
using copyback::RunEnd;
using core::Language;
using core::Notice;

const std::string folderCaption = "Carpeta de archivos";
const Notice finished{"El copiado de archivos a finalizado exitosamente.", "zarquelin",
                      Notice::Style::Information};
const Notice askForUnit{"Introduzca la unidad Fotos :", "Zarquelin"};
Notice notFound(const std::string& name) {
    return {"No se encontró el archivo " + name};
}

// A list as a test writes it down: items, all selected unless said otherwise.
struct ListedItems : copyback::ItemReader {
    std::vector<copyback::Item> items;
    std::set<int> unselected;

    void add(const std::string& ruta, const std::string& name, const std::string& type = "Archivo") {
        items.push_back({name, type, "Fotos :", ruta});
    }
    int count() const override { return int(items.size()); }
    bool isSelected(int position) const override { return !unselected.contains(position); }
    copyback::Item item(int position) const override { return items.at(std::size_t(position)); }
};

class CopyRun : public testing::Test {
  protected:
    RunEnd run(bool searchShown = false, int indicefila = 0) {
        const copyback::CopyRequest request{list1, list2, searchShown, indicefila, target, language};
        return copyback::copyFiles(request, {[this] { return discs(); },
                                             [this](const Notice& notice) {
                                                 told.push_back(notice);
                                                 if (onTell) onTell();
                                             },
                                             [this](const std::string& from, const std::string& to) {
                                                 destinations.push_back(to);
                                                 if (target.empty()) return platform::FileResult<>();
                                                 return platform::CopyFile(from, to);
                                             }});
    }
    // Files of a folder of the fixed disk, each with its name in it, as rows of the list.
    void offer(ListedItems& list, std::initializer_list<std::string> names) {
        for (const std::string& name : names) {
            discs.write("disk", "x/" + name, name);
            list.add("C:\\x", name);
        }
    }
    // What was copied under the name; nothing when there is no such file.
    std::string copied(const std::string& name) const { return test::readFile(target + '/' + name); }

    test::MountedDiscs discs;
    ListedItems list1, list2;
    std::string target = discs.disc("target");
    Language language = Language::Spanish;
    std::vector<Notice> told;
    std::vector<std::string> destinations;
    std::function<void()> onTell;
};

TEST_F(CopyRun, AMissingFileIsToldAndTheRestIsCopied) {
    offer(list1, {"a", "c", "unselected"});
    list1.add("C:\\x", "b");
    list1.unselected = {2};
    EXPECT_EQ(run(), RunEnd::Complete);
    EXPECT_EQ(told, (std::vector{notFound("b"), finished}));
    EXPECT_EQ(destinations, (std::vector{target + "/c", target + "/a"}));  // from the last to the first
    EXPECT_EQ(copied("a") + copied("c"), "ac");
}

TEST_F(CopyRun, NothingSelectedOrClickedOnlyEnds) {
    list1.add("C:\\x", "a");
    EXPECT_EQ(run(false, -1), RunEnd::Complete);
    list1.unselected = {0};
    EXPECT_EQ(run(), RunEnd::Complete);
    EXPECT_EQ(told, (std::vector{finished, finished}));
}

// Each candidate by a file that only it can find; a fixed disk has all four, other drives three.
TEST_F(CopyRun, TriesTheSpellingsInOrder) {
    discs.insert('E', "dvd");
    for (const char* disc : {"disk", "dvd"}) {
        discs.write(disc, "l´été/d´1", "1");
        discs.write(disc, "l'été/d´2", "2");
        discs.write(disc, "l'été/d'3", "3");
        discs.write(disc, "l´été/d'4", "4");
        discs.write(disc, "d'5", "5");
    }
    for (const char* name : {"d´1", "d´2", "d´3", "d´4"}) list2.add("C:\\l´été", name);
    list2.add("C:\\", "d´5");
    EXPECT_EQ(run(true), RunEnd::Complete);
    EXPECT_EQ(told, std::vector{finished});
    // The copy bears the name under which the file was found.
    EXPECT_EQ(copied("d´1") + copied("d´2") + copied("d'3") + copied("d'4") + copied("d'5"), "12345");

    told.clear();
    for (copyback::Item& item : list2.items) item.ruta[0] = 'E';
    EXPECT_EQ(run(true), RunEnd::Complete);
    EXPECT_EQ(told, (std::vector{askForUnit, notFound("d´4"), finished}));
}

TEST_F(CopyRun, AFolderEndsTheRun) {
    offer(list1, {"before", "after"});
    list1.items.insert(list1.items.begin() + 1, {"sub", folderCaption, "Fotos :", "C:\\x\\sub"});
    EXPECT_EQ(run(), RunEnd::Folder);
    EXPECT_EQ(told, (std::vector<Notice>{{"No se pueden copiar carpetas."}}));
    EXPECT_EQ(copied("before") + copied("after"), "after");

    language = Language::English;
    EXPECT_EQ(run(), RunEnd::Complete) << "the caption is that of the language";
    list1.items[1].type = "Files folder";
    EXPECT_EQ(run(), RunEnd::Folder);
    EXPECT_EQ(told.back(), (Notice{"Foldes can´t be copied."}));
}

TEST_F(CopyRun, ReadOnlyTargetEndsTheRunUnderTheNameInListView1) {
    offer(list2, {"a", "b", "c"});
    list1.add("C:\\x", "other0");
    list1.add("C:\\x", "other1");
    test::writeFile(target + "/b", "old");
    fs::permissions(target + "/b", fs::perms::owner_read);
    EXPECT_EQ(run(true), RunEnd::Failed);
    EXPECT_EQ(told, (std::vector<Notice>{{"El archivo other1 ya existe y es de solo lectura."}}));
    EXPECT_EQ(copied("a") + copied("b") + copied("c"), "oldc");

    list1.items.clear();  // nothing to take a name from
    language = Language::English;
    EXPECT_EQ(run(true), RunEnd::Failed);
    EXPECT_EQ(told.back(), (Notice{"The file b already exists and is a read only file."}));
}

TEST_F(CopyRun, TheTargetMayBeGoneOrNotChosen) {
    offer(list1, {"a"});
    target += "/gone";
    EXPECT_EQ(run(), RunEnd::Failed);
    EXPECT_EQ(told, (std::vector<Notice>{{"La unidad se encuentra vacia."}}));
    target.clear();
    EXPECT_EQ(run(), RunEnd::Complete);
    EXPECT_EQ(destinations.back(), "/a") << "a cancelled chooser copies to the root";
}

TEST_F(CopyRun, AsksForTheDiscOnceAndFindsItsOtherFilesBesideTheFirst) {
    for (const char* name : {"a", "b´2", "it's", "deep/c"})
        discs.write("dvd", std::string("x/") + name, name);
    list2.add("E:\\x", "a");
    list2.add("E:\\x\\deep", "c");  // on the disc, but not beside the first: passed over silently
    list2.add("E:\\x", "gone");
    list2.add("E:\\x", "it´s");
    list2.add("E:\\x", "b´2");
    onTell = [this] { discs.insert('G', "dvd"); };
    EXPECT_EQ(run(true), RunEnd::Complete);
    EXPECT_EQ(told, (std::vector{askForUnit, finished}));
    EXPECT_EQ(copied("a") + copied("b´2") + copied("it's") + copied("c"), "ab´2it's");
}

TEST_F(CopyRun, ADiscThatStaysAwayIsAskedForAgainForEachFile) {
    list2.add("E:\\x", "a");
    list2.add("C:Pelis", "Pelis", "Unidad de video");  // a unit entered by hand lies nowhere
    EXPECT_EQ(run(true), RunEnd::Complete);
    EXPECT_EQ(told, (std::vector{askForUnit, notFound("Pelis"), askForUnit, notFound("a"), finished}));
}

// Once a file of ListView1 was found in another drive.
TEST_F(CopyRun, AFindElsewhereGivesTheOtherListATurn) {
    discs.insert('G', "dvd");
    for (const char* name : {"a", "b", "c"}) discs.write("dvd", std::string("x/") + name, name);
    for (const char* name : {"a", "b"}) list1.add("E:\\x", name);

    EXPECT_EQ(run(), RunEnd::Broken);  // ListView2 has no such item
    EXPECT_EQ(copied("a") + copied("b"), "b");

    for (const char* name : {"a", "c"}) list2.add("E:\\x", name);
    list2.unselected = {1};
    EXPECT_EQ(run(), RunEnd::Complete);  // an unselected item would keep it for ever
    EXPECT_EQ(copied("a") + copied("b") + copied("c"), "ab");

    list2.unselected.clear();
    EXPECT_EQ(run(), RunEnd::Complete);  // its item has one turn
    EXPECT_EQ(copied("c"), "c");
    EXPECT_EQ(told.size(), 2u) << "that both runs have ended";

    list2.items[1].type = folderCaption;
    EXPECT_EQ(run(), RunEnd::Folder);
}

TEST_F(CopyRun, TheThirdSpellingTakesItsNameFromListView2) {
    discs.insert('G', "dvd");
    discs.write("dvd", "x/it's", "mine");
    discs.write("dvd", "x/who's", "other");
    list1.add("E:\\x", "it´s");
    EXPECT_EQ(run(), RunEnd::Failed);  // there is none
    EXPECT_TRUE(destinations.empty());

    list2.add("E:\\y", "who´s");
    list2.unselected = {0};
    EXPECT_EQ(run(), RunEnd::Complete);
    EXPECT_EQ(copied("who's") + copied("it's"), "other");
}

}  // namespace
