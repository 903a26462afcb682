#include "browse/list_activation.h"

#include "support/main_window.h"
#include "support/opened_files.h"

namespace {

using test::Names;

class ListActivation : public test::MainWindow {
  protected:
    void browseFotos() {
        start();
        newCatalogue();
        import("Fotos", discs.disc("dvd"));
        click("Fotos :");
    }
    std::string pathShown() { return combo().text().toStdString(); }
    std::string selectedNode() { return tree().nodes().text(tree().selected()).toStdString(); }

    test::OpenedFiles opened;
};

TEST_F(ListActivation, StepsDownFromTheBrowseListAndOpensAFile) {
    discs.write("dvd", "atlas/2002/b.jpg", std::string(3000, 'x'));
    discs.write("dvd", "viaje/2003/a.jpg", std::string(5000, 'x'));
    const std::string map = discs.write("dvd", "viaje/it's a map.txt", "");
    browseFotos();
    lists::ItemList& list = surface().lists.listView1;
    list.select(1);
    choose("abrirlistitem");  // nothing was clicked
    EXPECT_EQ(listed(), (Names{"atlas", "viaje"}));

    list.sort({.on = true, .key = 2, .descending = false});
    doubleClickRow(list, 1);
    EXPECT_EQ(listed(), (Names{"2003", "it´s a map.txt"}));
    EXPECT_EQ(selectedNode(), "viaje");
    EXPECT_TRUE(tree().isExpanded(node("Fotos :")));
    EXPECT_EQ(pathShown(), "Fotos :\\viaje");
    EXPECT_EQ(surface().estado.nivelactual, 2);
    EXPECT_EQ(list.store().sorting(), (lists::ItemStore::Sorting{true, 1, false}));
    EXPECT_EQ(size() + status() + kind(), "Size: 5 KB  Folders: 0  Files: 1Folders and files unit");

    choose("abrirlistitem");  // no row is selected any more
    EXPECT_EQ(pathShown(), "Fotos :\\viaje");
    doubleClickRow(list, 1);
    EXPECT_EQ(opened.targets, Names{map});
    doubleClickRow(list, 0);
    EXPECT_EQ(pathShown(), "Fotos :\\viaje\\2003");
    EXPECT_EQ(combo().count(), 2) << "one path item at a time";
    EXPECT_EQ(listed(), Names{"a.jpg"});

    qputenv("ZARQUELIN_DRIVES", "E=,removable");
    clickRow(list, 0);
    choose("abrirlistitem");
    using Shown = test::RecordingMessages::Shown;
    EXPECT_EQ(messages.shown, (std::vector<Shown>{{"Introduce the unit Fotos :", "Zarquelin"},
                                                  {"This file can´t be find as a.jpg", "zarquelin"}}));
}

TEST_F(ListActivation, StepsInTheSearchListLeaveTheRestAlone) {
    for (const char* name : {"f/a/b/same/one", "f/a/c/same/two", "f/a/b/same/sub/three"})
        discs.write("dvd", name, "");
    browseFotos();
    clickRow(surface().lists.listView1, 0);
    choose("buscar");
    search("same");
    lists::ItemList& results = surface().lists.listView2;
    results.sort({.on = true, .key = 9, .descending = false});
    ASSERT_EQ(results.subItem(0, 9), "E:\\f\\a\\b\\same");
    results.select(0);
    choose("abrirlistitem");  // the other list's click is not this one's
    EXPECT_EQ(listed(), (Names{"same", "same"}));

    results.sort({.on = true, .key = 7, .descending = true});
    doubleClickRow(results, results.subItem(0, 9) == "E:\\f\\a\\b\\same" ? 0 : 1);
    EXPECT_EQ(listed(), (Names{"two", "one", "sub"})) << "namesakes of the same depth supply files too";
    EXPECT_EQ(pathShown(), "Fotos :");
    EXPECT_EQ(surface().estado.nivelactual, 1);
    EXPECT_EQ(selectedNode(), "Fotos :");
    EXPECT_EQ(names(surface().lists.listView1), Names{"f"});

    // A folder that the catalogue does not have empties the list.
    results.clear();
    lists::ListItem gone;
    gone.text = "gone";
    gone.type = "Files folder";
    gone.disco = "Fotos :";
    gone.ruta = "E:\\gone";
    results.add(gone);
    doubleClickRow(results, 0);
    EXPECT_EQ(listed(), Names{});
}

}  // namespace
