// Units entered by hand, renamed and deleted in the real window, and units with odd content.

#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "support/main_window.h"

namespace {

using core::Language;
using shell::Toolbar;
using test::Names;

class Units : public test::MainWindow {
  protected:
    void insert(core::CatalogRow row) {
        auto database = jet::OpenDatabase(frame().catalogue.path()).value();
        ASSERT_TRUE(database.Execute(row.archivo ? core::insertFile(row) : core::insertFolder(row)));
    }
    static core::CatalogRow folderRow(const std::string& disco, const std::string& ruta, int nivel) {
        core::CatalogRow row;
        row.disco = disco;
        row.ruta = ruta;
        row.carpeta = ruta.substr(ruta.rfind('\\') + 1);
        row.nivel = std::to_string(nivel);
        row.tipo = core::folderTipo;
        return row;
    }
};

TEST_F(Units, AHandMadeUnitIsBrowsedAtOnce) {
    start(Language::Spanish);
    newCatalogue();
    choose("explore");
    control<QTabBar>("TabStrip2").setCurrentIndex(1);
    control<controls::ImageCombo>("ImageCombo4").setSelected(2);
    QTest::keyClicks(&control("Text11"), "Cds de jazz");
    QTest::keyClicks(&control("Text3"), "Musica");
    control<QAbstractButton>("Label20").click();
    EXPECT_EQ(pressed(), (std::vector<int>{Toolbar::Explore}));
    click("Musica :");
    EXPECT_EQ(listed(), (Names{"Cds de jazz"}));
    EXPECT_EQ(kind(), "Unidad de audio");
    EXPECT_EQ(frame().status.picture(), 7);
    EXPECT_EQ(status(), "  Unidad: Musica :  Carpetas: 1  Archivos: 0");
    EXPECT_EQ(size(), "Tamaño: 0 KB");
    EXPECT_EQ(tree().nodes().childCount(node("Musica :")), 1) << "its row stands in the tree like a folder";
    EXPECT_FALSE(std::filesystem::exists(folder / "temp.ejm"));
}

TEST_F(Units, RenamingRefusesNamesInAllUpperOrAllLowerCase) {
    test::writeFotos(discs);
    start();
    const std::string path = newCatalogue();
    import("Fotos", discs.disc("dvd"));
    for (const char* unit : {"CDS", "dvds", "MiXed"}) addByHand(unit, "x");
    click("Fotos :");
    for (const char* taken : {"cds", "CDS", "Dvds"}) {
        rename("Fotos :", taken);
        ASSERT_EQ(messages.shown.size(), 1u) << taken;
        EXPECT_EQ(messages.shown[0].text, "There is a unit with this name, please choose another. ");
        EXPECT_EQ(roots()[0], "Fotos :");
        messages.shown.clear();
    }
    rename("Fotos :", "it's");
    EXPECT_EQ(messages.shown.size(), 1u) << "no name for the engine";
    messages.shown.clear();

    rename("Fotos :", "Viejas :");  // the ending left in place is doubled
    EXPECT_EQ(roots()[0], "Viejas : :");
    EXPECT_EQ(items(combo())[0], "Viejas : :");
    EXPECT_EQ(rowCount(path, "disco=('Viejas : :')"), 8);
    EXPECT_EQ(listed(), (Names{"atlas", "viaje", "Lista.TXT"}));
    EXPECT_EQ(surface().lists.listView1.subItem(0, 8), "Viejas : :") << "listed under the new name";
    click("Viejas : :\\viaje\\2003");
    EXPECT_EQ(listed(), (Names{"playa", "a.jpg"}));
    rename("Viejas : :", "FOTOS");
    rename("FOTOS :", "Viejas");
    rename("Viejas :", "FOTOS");  // free again
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(items(surface().imageCombo3),
              (Names{"Complete catalog:", "CDS :", "dvds :", "FOTOS :", "MiXed :"}));

    rename("CDS :", "MiXed");  // a mixed-case name passes, and the two units merge
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(rowCount(path, "disco=('MiXed :')"), 2);
    choose("reciente");
    EXPECT_EQ(roots(), (Names{"dvds :", "FOTOS :", "MiXed :"}));
}

TEST_F(Units, DeletingAsksFirstAndTouchesOneUnit) {
    test::writeFotos(discs);
    start();
    const std::string path = newCatalogue();
    import("Fotos", discs.disc("dvd"));
    addByHand("Cds", "x");
    for (const char* upkeep : {"compactar", "reparar"}) {
        choose(upkeep);
        EXPECT_EQ(rowCount(path), 9);
    }
    choose("borrarunidad1");  // nothing selected
    click("Fotos :");
    click("Fotos :\\viaje", Qt::RightButton);
    EXPECT_FALSE(isOn("borrarunidad") || isOn("cambiarnombre"));
    frame().menus.popup()->close();
    press(Toolbar::Delete);  // a folder is selected
    EXPECT_TRUE(messages.asked.empty());
    EXPECT_FALSE(frame().toolbar.isPressed(Toolbar::Delete));

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
    EXPECT_EQ(combo().text(), "");
    EXPECT_EQ(items(surface().imageCombo3), (Names{"Complete catalog:", "Cds :"}));
    EXPECT_EQ(status(), "  Units: 1  Folders: 0  Files: 0");
    EXPECT_EQ(size() + kind(), "") << "these told of the unit";
    click("Cds :");
    EXPECT_EQ(combo().text(), "Cds :");
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
    EXPECT_EQ(items(surface().imageCombo3), (Names{"Complete catalog:"}));
    EXPECT_TRUE(control("Picture1").isHidden());
    addByHand("Cds", "y");
    click("Cds :");
    EXPECT_EQ(listed(), (Names{"y"}));
}

TEST_F(Units, NamesDecideWhatANodeIs) {
    start();
    newCatalogue();
    insert(folderRow("Fotos :", "E:\\Cds :", 1));
    insert(folderRow("Fotos :", "E:\\a", 1));
    insert(folderRow("Fotos :", "E:\\a\\b", 2));
    core::CatalogRow odd = folderRow("Odd :", "E:\\a", 1);
    odd.tipo = "Unidad de cintas";
    insert(odd);
    core::CatalogRow file = folderRow("fotos :", "E:\\", 1);
    file.archivo = "plain.txt";
    file.carpeta = "E:";
    file.tipo = core::fileTipo;
    insert(file);
    addByHand("Cds", "pelis");
    choose("reciente");
    // The unit of unknown kind has no node, but counts.
    ASSERT_EQ(roots().size(), 3u);
    EXPECT_NE(node("Fotos :"), browse::noNode);
    EXPECT_NE(node("fotos :"), browse::noNode) << "a spelling of its own";
    EXPECT_EQ(status(), "  Units: 4  Folders: 3  Files: 1");

    click("Fotos :");
    EXPECT_EQ(listed(), (Names{"a", "Cds :", "plain.txt"})) << "the engine takes no notice of case";
    click("Fotos :\\Cds :");
    EXPECT_EQ(listed(), (Names{"pelis"})) << "a folder with a unit's name counts as the unit";
    EXPECT_EQ(surface().estado.discoactual, "Cds :");
    choose("arriba");
    EXPECT_EQ(listed(), (Names{"pelis"}));

    // A unit opened through the combo has no names for its folders: they list nothing.
    choose("reciente");
    combo().setFocus();
    combo().setSelected(1);
    QTest::keyClick(&combo(), Qt::Key_Down);
    ASSERT_EQ(combo().text(), "Fotos :");
    EXPECT_TRUE(tree().isExpanded(node("Fotos :")));
    click("Fotos :\\a");
    EXPECT_EQ(listed(), Names{});
}

TEST_F(Units, TheTwelfthLevelStaysOutOfTheTree) {
    std::string path, ruta = "E:";
    start();
    newCatalogue();
    QString full = "Deep :";
    for (int nivel = 1; nivel <= 12; ++nivel) {
        ruta += "\\f" + std::to_string(nivel);
        insert(folderRow("Deep :", ruta, nivel));
        if (nivel < 12) full += "\\f" + QString::number(nivel);
    }
    choose("reciente");
    click("Deep :");
    EXPECT_EQ(tree().nodes().count(), 12);
    EXPECT_EQ(status(), "  Unit: Deep :  Folders: 12  Files: 0");
    click(full.section('\\', 0, -2));
    EXPECT_EQ(listed(), (Names{"f11"}));
    EXPECT_EQ(surface().estado.nivelactual, 11);
    click(full);
    EXPECT_EQ(listed(), Names{}) << "what lies in a folder of the eleventh level is reached by search only";
    choose("arriba");
    EXPECT_EQ(listed(), (Names{"f11"}));
}

}  // namespace
