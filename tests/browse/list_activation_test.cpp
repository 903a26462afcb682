#include "browse/list_activation.h"

#include <gtest/gtest.h>

#include "platform/shell_open.h"
#include "support/browse_window.h"

namespace {

using Names = std::vector<std::string>;

class ListActivation : public testing::Test {
  protected:
    ListActivation() {
        platform::setShellOpener([this](const std::string& target, const std::string&) {
            opened.push_back(target);
            return true;
        });
        window.discs.insert('E', "dvd", "removable");
    }
    ~ListActivation() override { platform::setShellOpener({}); }

    // As the mouse does it: the first click of a double click selects.
    void doubleClick(browse::ItemList& list, int position) {
        list.select(position);
        activation.itemClicked(list, position);
        activation.doubleClicked(list);
    }
    std::string pathShown() { return window.combo1.text().toStdString(); }
    std::string selectedNode() { return window.tree.nodes().text(window.tree.selected()).toStdString(); }

    // A row in the search list, as a search shows it.
    void showResult(const std::string& ruta, const std::string& name, const std::string& type) {
        browse::ListItem item;
        item.text = name;
        item.type = type;
        item.disco = "Fotos :";
        item.ruta = ruta;
        window.list2.beginFill();
        window.list2.add(item);
        window.list2.endFill();
        window.list2.show();
    }

    test::BrowseWindow window{core::Language::English};
    browse::Surface& surface = window.surface;
    browse::ListActivation activation{surface, [this] { return window.discs(); }};
    Names opened;
};

TEST_F(ListActivation, StepsDownFromTheBrowseListAndOpensAFile) {
    window.discs.write("dvd", "fotos/atlas/2002/b.jpg", std::string(3000, 'x'));
    window.discs.write("dvd", "fotos/viaje/2003/a.jpg", std::string(5000, 'x'));
    const std::string map = window.discs.write("dvd", "fotos/viaje/it's a map.txt", "");
    window.scan("Fotos", window.discs.disc("dvd") + "/fotos");
    window.browse("Fotos");
    ASSERT_EQ(window.names(window.list1), (Names{"atlas", "viaje"}));

    window.list1.select(1);
    activation.doubleClicked(window.list1);  // nothing was clicked
    EXPECT_EQ(window.list1.count(), 2);
    EXPECT_FALSE(activation.popupAllowed());

    window.list1.sort({.on = true, .key = 2, .descending = false});
    doubleClick(window.list1, 1);
    EXPECT_EQ(window.names(window.list1), (Names{"2003", "it´s a map.txt"}));
    EXPECT_EQ(selectedNode(), "viaje");
    EXPECT_TRUE(window.tree.isExpanded(window.tree.nodes().firstChild(browse::noNode)));
    EXPECT_EQ(pathShown(), "Fotos :\\viaje");
    EXPECT_EQ(surface.estado.nivelactual, 2);
    EXPECT_EQ(surface.clic.nivelfila1, "1");
    EXPECT_EQ(window.list1.store().sorting(), (browse::ItemStore::Sorting{true, 1, false}));
    EXPECT_EQ(window.status.size(), "Size: 5 KB");
    EXPECT_EQ(window.status.text(), "  Folders: 0  Files: 1");
    EXPECT_EQ(window.status.kind(), "Folders and files unit");
    EXPECT_FALSE(activation.popupAllowed());  // the clicked row is still the folder

    activation.doubleClicked(window.list1);  // no row is selected any more
    EXPECT_EQ(pathShown(), "Fotos :\\viaje");

    doubleClick(window.list1, 1);
    EXPECT_EQ(opened, Names{map});
    EXPECT_TRUE(activation.popupAllowed());

    doubleClick(window.list1, 0);
    EXPECT_EQ(pathShown(), "Fotos :\\viaje\\2003");
    EXPECT_EQ(window.combo1.count(), 2);  // one path item at a time
    EXPECT_EQ(window.names(window.list1), Names{"a.jpg"});

    window.discs.eject('E');
    window.list1.select(0);
    activation.itemClicked(window.list1, 0);
    activation.abrirlistitem();
    ASSERT_EQ(window.messages.shown.size(), 2u);
    EXPECT_EQ(window.messages.shown[0],
              (test::RecordingMessages::Shown{"Introduce the unit Fotos :", "Zarquelin"}));
    EXPECT_EQ(window.messages.shown[1],
              (test::RecordingMessages::Shown{"This file can´t be find as a.jpg", "zarquelin"}));
}

TEST_F(ListActivation, TheEleventhLevelListsNothing) {
    std::string path = "fotos";
    for (int level = 1; level <= 12; ++level) path += "/n" + std::to_string(level);
    window.discs.write("dvd", path + "/file", "");
    window.scan("Fotos", window.discs.disc("dvd") + "/fotos");
    window.browse("Fotos");
    for (int level = 1; level <= 10; ++level) {
        ASSERT_EQ(window.names(window.list1), Names{"n" + std::to_string(level)});
        doubleClick(window.list1, 0);
    }
    ASSERT_EQ(window.names(window.list1), Names{"n11"});
    doubleClick(window.list1, 0);
    EXPECT_EQ(window.list1.count(), 0);
    EXPECT_EQ(surface.estado.nivelactual, 12);
    EXPECT_EQ(selectedNode(), "n11");
}

TEST_F(ListActivation, StepsInTheSearchListLeaveTheRestAlone) {
    window.discs.write("dvd", "f/a/b/same/one", "");
    window.discs.write("dvd", "f/a/c/same/two", "");
    window.discs.write("dvd", "f/a/b/same/sub/three", "");
    window.scan("Fotos", window.discs.disc("dvd"));
    window.browse("Fotos");
    const std::string path = pathShown();
    window.list2.sort({.on = true, .key = 7, .descending = true});

    showResult("E:\\f\\a\\b\\same", "same", "Files folder");
    activation.itemClicked(window.list1, 0);  // the other list's click is not this one's
    window.list2.select(0);
    activation.doubleClicked(window.list2);
    EXPECT_EQ(window.names(window.list2), Names{"same"});

    // Namesakes of the same depth supply files too.
    window.list2.select(0);
    activation.itemClicked(window.list2, 0);
    activation.abrirlistitem();
    Names listed = window.names(window.list2);
    EXPECT_EQ(listed, (Names{"two", "one", "sub"}));
    EXPECT_EQ(surface.clic.nivelfila2, "4");
    EXPECT_EQ(pathShown(), path);
    EXPECT_EQ(surface.estado.nivelactual, 1);
    EXPECT_EQ(selectedNode(), "Fotos :");
    EXPECT_EQ(window.names(window.list1), Names{"f"});

    // A folder that the catalogue does not have empties the list.
    window.list2.clear();
    showResult("E:\\gone", "gone", "Files folder");
    doubleClick(window.list2, 0);
    EXPECT_EQ(window.list2.count(), 0);
}

}  // namespace
