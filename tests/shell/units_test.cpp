// Units entered by hand, renamed and deleted in the real window, and units with odd content.

#include "support/catalogue_fixture.h"
#include "support/main_window.h"

namespace {

using core::Language;
using frame::Toolbar;
using test::Names;

using Units = test::MainWindow;

TEST_F(Units, RenamingRefusesNamesInAllUpperOrAllLowerCase) {
    const std::string path = startWithFotos();
    for (const char* unit : {"CDS", "dvds", "MiXed"}) addByHand(unit, "x");
    click("Fotos :");
    for (const char* taken : {"cds", "CDS", "Dvds"}) {
        rename("Fotos :", taken);
        EXPECT_EQ(messages.shown.back().text, "There is a unit with this name, please choose another. ");
    }
    test::addRows(path, {test::folderRow("Late :", "E:\\x")});
    rename("Fotos :", "late");
    EXPECT_EQ(messages.shown.back().text, "There is a unit with this name, please choose another. ");
    EXPECT_EQ(rowCount(path, "disco=('Late :')"), 1) << "nobody here has seen it";
    for (const char* noName : {"it's", "x', ruta='y"}) rename("Fotos :", noName);
    rename("Fotos :", "Otra", Qt::Key_Escape);
    EXPECT_EQ(messages.shown.size(), 6u);
    EXPECT_TRUE(engine::OpenDatabase(path)->Execute("delete * from datos where disco=('Late :')"));
    EXPECT_EQ(roots()[0], "Fotos :");
    messages.shown.clear();

    rename("Fotos :", "Viejas :");  // the ending left in place is doubled
    EXPECT_EQ(roots()[0] + items(combo())[0], "Viejas : :Viejas : :");
    EXPECT_EQ(rowCount(path, "disco=('Viejas : :')"), 8);
    EXPECT_EQ(surface().lists.listView1.subItem(0, 8), "Viejas : :") << "listed under the new name";
    click("Viejas : :\\viaje\\2003");
    EXPECT_EQ(listed(), (Names{"playa", "a.jpg"}));
    tree().clearSelection();  // by a click beside the nodes, which F2 takes no notice of
    emit tree().afterLabelEdit(node("Viejas : :"), "FOTOS");
    QCoreApplication::processEvents();
    EXPECT_EQ(surface().lists.listView1.subItem(0, 8), "FOTOS :");
    rename("FOTOS :", "Viejas");
    rename("Viejas :", "FOTOS");  // free again
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(items(control<controls::ImageCombo>("ImageCombo3")),
              (Names{"Complete catalog:", "CDS :", "dvds :", "FOTOS :", "MiXed :"}));

    rename("CDS :", "MiXed");  // a mixed-case name passes, and the two units merge
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(rowCount(path, "disco=('MiXed :')"), 2);
    EXPECT_EQ(roots(), (Names{"FOTOS :", "MiXed :", "dvds :"}));
    EXPECT_EQ(items(combo()), roots());
    EXPECT_EQ(listed(), (Names{"x", "x"}));
    rename("MiXed :", "Cds");
    rename("Cds :", "MIXED");  // no name of the merged unit is left behind
    EXPECT_TRUE(messages.shown.empty());
    choose("reciente");
    EXPECT_EQ(roots(), (Names{"dvds :", "FOTOS :", "MIXED :"}));
}

TEST_F(Units, RenamedAndDeletedUnitsChangeAmongTheResultsToo) {
    const std::string path = startWithFotos();
    addByHand("Cds", "mapas");
    const lists::ItemList& results = surface().lists.listView2;
    const auto units = [&] {
        Names discos;
        for (int i = 0; i < results.count(); ++i) discos.push_back(results.subItem(i, 8).toStdString());
        return discos;
    };
    click("Fotos :");
    click("Fotos :\\viaje");
    choose("buscar");
    search("map");
    clickRow(results, 1);
    choose("explorar");
    rename("Fotos :", "Viejas");
    EXPECT_EQ(items(combo()), (Names{"Viejas :", "Cds :"})) << "without the path";
    EXPECT_EQ(units(), (Names{"Cds :", "Viejas :"}));
    choose("buscar");
    EXPECT_EQ(results.selectedPosition(), 1);
    clickRow(results, 1);
    choose("insertarcomentario");
    QTest::keyClicks(&control("Text10"), "mine");
    QTest::keyClick(&control("Command6"), Qt::Key_Space);
    EXPECT_EQ(rowCount(path, "comentario=('mine') and archivo=('mapa.txt')"), 1);
    EXPECT_EQ(results.subItem(1, 1), "mine");

    click("Viejas :");
    messages.answers = {true};
    choose("borrarunidad1");
    EXPECT_EQ(units(), (Names{"Cds :"}));
    EXPECT_LT(surface().clic.indicefila, 0) << "the row that was clicked is no more";
    messages.answers = {true, true};
    choose("eliminar");
    EXPECT_EQ(units(), Names{});
    EXPECT_EQ(pressed(), (std::vector<int>{Toolbar::Explore}));
}

TEST_F(Units, DeletingAsksFirstAndTouchesOneUnit) {
    const std::string path = startWithFotos();
    addByHand("Cds", "x");
    choose("borrarunidad1");  // nothing selected
    click("Fotos :");
    click("Fotos :\\viaje", Qt::RightButton);
    EXPECT_EQ(listed(), (Names{"2003", "mapa.txt"})) << "clicked before its menu comes";
    EXPECT_FALSE(isOn("borrarunidad") || isOn("cambiarnombre"));
    frame().menus.popup()->close();
    QTest::keyClick(&tree(), Qt::Key_F2);
    EXPECT_EQ(tree().viewport()->findChild<QLineEdit*>(), nullptr) << "a folder keeps its name";
    press(frame::Toolbar::Delete);  // a folder is selected
    EXPECT_TRUE(messages.asked.empty());
    EXPECT_FALSE(frame().toolbar.isPressed(frame::Toolbar::Delete));

    click("Fotos :", Qt::RightButton);
    EXPECT_EQ(frame().menus.action("abrirnodo")->text(), "Collapse");
    frame().menus.popup()->close();
    choose("borrarunidad");
    ASSERT_EQ(messages.asked.size(), 1u);
    EXPECT_EQ(messages.asked[0].text, "Do you really want to erase Fotos : from registry?");
    EXPECT_EQ(rowCount(path), 9);
    messages.answers = {true};
    choose("borrarunidad");
    EXPECT_EQ(rowCount(path), 1);
    EXPECT_EQ(roots(), (Names{"Cds :"}));
    EXPECT_EQ(items(combo()), (Names{"Cds :"}));
    EXPECT_EQ(items(control<controls::ImageCombo>("ImageCombo3")), (Names{"Complete catalog:", "Cds :"}));
    EXPECT_EQ(combo().text(), "");
    EXPECT_EQ(status(), "  Units: 1  Folders: 0  Files: 0");
    EXPECT_EQ(size() + kind(), "") << "these told of the unit";
    click("Cds :");
    EXPECT_EQ(listed(), (Names{"x"}));
    import("Fotos", discs.disc("dvd"));  // the name is free, and the unit is found behind the folder nodes
    click("Cds :\\x");
    click("Fotos :");
    EXPECT_EQ(combo().text(), "Fotos :");
}

TEST_F(Units, DeletingEverythingAsksTwiceAndSpeaksSpanish) {
    start();
    const std::string path = newCatalogue();
    addByHand("Cds", "x");
    choose("buscar");
    for (const int yes : {0, 1}) {
        messages.answers.assign(std::size_t(yes), true);
        choose("eliminar");
        EXPECT_EQ(rowCount(path), 1);
    }
    EXPECT_EQ(messages.asked.size(), 3u);
    EXPECT_EQ(messages.asked[2].text, "Are you completely sure?");
    messages.answers = {true, true};
    choose("eliminar");
    EXPECT_EQ(rowCount(path), 0);
    EXPECT_EQ(status(), "Unidades : 0   Carpetas : 0    Archivos: 0");
    EXPECT_TRUE(roots().empty() && items(combo()).empty());
    EXPECT_EQ(items(control<controls::ImageCombo>("ImageCombo3")), (Names{"Complete catalog:"}));
    EXPECT_TRUE(control("Picture1").isHidden());
}

TEST_F(Units, NamesDecideWhatANodeIs) {
    core::CatalogRow odd = test::folderRow("Odd :", "E:\\a");
    odd.tipo = "Unidad de cintas";
    const test::CatalogueFixture sample;
    sample.add({test::folderRow("Fotos :", "E:\\Cds :"), test::folderRow("Fotos :", "E:\\a"),
                test::folderRow("Fotos :", "E:\\a\\b"), odd, test::fileRow("fotos :", "E:\\", "plain.txt"),
                test::unitRow("Cds :", "pelis", "Unidad de audio"), test::fileRow("its :", "E:\\", "x")});
    ASSERT_TRUE(engine::OpenDatabase(sample.path)->Execute("update datos set disco='''' where archivo='x'"));
    start(Language::English, sample.path);
    // The unit of unknown kind and the one that no statement can name have no node, but count.
    EXPECT_EQ(roots().size(), 3u);
    EXPECT_EQ(status(), "  Units: 5  Folders: 3  Files: 2");

    click("Fotos :");
    EXPECT_EQ(listed(), (Names{"a", "Cds :", "plain.txt"})) << "the engine takes no notice of case";
    click("Fotos :\\Cds :");
    EXPECT_EQ(listed(), (Names{"pelis"})) << "a folder with a unit's name counts as the unit";
    EXPECT_EQ(surface().estado.discoactual, "Cds :");

    // A unit opened through the combo has no names for its folders: they list nothing.
    choose("reciente");
    chooseItem(combo(), 2);
    ASSERT_EQ(combo().text(), "Fotos :");
    EXPECT_TRUE(tree().isExpanded(node("Fotos :")));
    click("Fotos :\\a");
    EXPECT_EQ(listed(), Names{});
}

TEST_F(Units, TheTwelfthLevelStaysOutOfTheTree) {
    const test::CatalogueFixture sample;
    std::string path;
    for (int nivel = 1; nivel <= 12; ++nivel) {
        path += "\\f" + std::to_string(nivel);
        sample.add(test::folderRow("Deep :", "E:" + path));
    }
    start(Language::English, sample.path);
    click("Deep :");
    EXPECT_EQ(tree().nodes().count(), 12);
    EXPECT_EQ(status(), "  Unit: Deep :  Folders: 12  Files: 0");
    const QString ninth = "Deep :\\f1\\f2\\f3\\f4\\f5\\f6\\f7\\f8\\f9";
    click(ninth + "\\f10");
    EXPECT_EQ(listed(), (Names{"f11"}));
    EXPECT_EQ(surface().estado.nivelactual, 11);
    click(ninth + "\\f10\\f11");
    EXPECT_EQ(listed(), Names{}) << "what lies in a folder of the eleventh level is reached by search only";
    choose("arriba");
    EXPECT_EQ(listed(), (Names{"f11"}));

    // The same, stepping down from the list.
    click(ninth);
    for (const Names& inside : {Names{"f11"}, Names{}}) {
        surface().lists.listView1.setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(listed(), inside);
    }
    EXPECT_EQ(surface().estado.nivelactual, 12);
    EXPECT_EQ(tree().selected(), node(ninth + "\\f10\\f11"));
}

}  // namespace
