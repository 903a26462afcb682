// The stop, and what else a user may do while a scan or the load of a unit gives way.

#include <QProgressBar>
#include <optional>

#include "support/file_size_limit.h"
#include "support/main_window.h"

namespace {

namespace fs = std::filesystem;
using frame::Toolbar;
using test::Names;

class Stopping : public test::BilingualWindow {
  protected:
    void SetUp() override {
        writeFotos();
        start(GetParam());
        path = newCatalogue();
    }
    void expectIdle() {
        EXPECT_FALSE(frame().toolbar.isEnabled(frame::Toolbar::Stop) || isOn("Parar1"));
        EXPECT_TRUE(isOn("compactar") && isOn("reparar"));
        EXPECT_TRUE(control("ProgressBar1").isHidden());
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }
    std::string path;
};

TEST_P(Stopping, AStoppedScanLeavesAPartialUnit) {
    whenItYields([this] {
        EXPECT_FALSE(isOn("compactar") || isOn("reparar"));
        EXPECT_TRUE(control("ProgressBar1").isVisible());
        EXPECT_EQ(rowCount(path), 1) << "committed before anyone could look";
        // A look at a list must not take the stop away.
        QTest::mouseClick(surface().lists.listView1.findChild<QAbstractItemView*>()->viewport(),
                          Qt::LeftButton);
        press(frame::Toolbar::Stop);
    });
    import("Fotos", discs.disc("dvd"));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text.toStdString(), in("Operación cancelada.", "Canceled operation."));
    EXPECT_EQ(control<QLineEdit>("Text3").text(), "Fotos :");
    EXPECT_EQ(rowCount(path), 1);
    EXPECT_EQ(roots(), (Names{"Fotos :"}));
    EXPECT_EQ(items(control<controls::ImageCombo>("ImageCombo3")).back(), "Fotos :");
    EXPECT_EQ(status(), in("  Unidades: 1  Carpetas: 1  Archivos: 0", "  Units: 1  Folders: 1  Files: 0"));
    EXPECT_EQ(pressed(), (std::vector<int>{frame::Toolbar::Explore}));
    expectIdle();
    click("Fotos :");
    EXPECT_EQ(listed(), (Names{"atlas"}));
}

TEST_P(Stopping, AStoppedLoadLeavesHalfTheTreeUntilTheCatalogueIsReopened) {
    import("Fotos", discs.disc("dvd"));
    whenItYields([this] {
        EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
        choose("Parar1");
    });
    click("Fotos :");
    EXPECT_EQ(status(), in(" Accediendo a la información...", " Acceding to the information..."));
    EXPECT_EQ(listed(), Names{});
    EXPECT_EQ(tree().nodes().count(), 1);
    EXPECT_TRUE(fs::exists(folder / "temp.ejm"));
    EXPECT_TRUE(messages.shown.empty());
    expectIdle();

    // Stopped after the first folder: the unit counts as loaded from then on.
    QObject::connect(
        &tree().nodes(), &QAbstractItemModel::rowsInserted, form.get(),
        [this] { press(frame::Toolbar::Stop); }, Qt::SingleShotConnection);
    for (int i = 0; i < 2; ++i) {
        click("Fotos :");
        EXPECT_EQ(tree().nodes().count(), 2);
    }
    EXPECT_EQ(listed(), (Names{"atlas", "viaje", "Lista.TXT"}));

    choose("reciente");
    click("Fotos :");
    EXPECT_EQ(tree().nodes().count(), 5);
    EXPECT_FALSE(fs::exists(folder / "temp.ejm"));
    expectIdle();
}

// One unit's load gives way once a folder, and whoever browses on meanwhile cuts nothing short.
TEST_P(Stopping, BrowsingOnLeavesNoUnitHalfLoaded) {
    const Names units{"Uno", "Dos", "Tres"};
    for (const std::string& unit : units) import(unit.c_str(), discs.disc("dvd"));
    choose("reciente");
    const auto loaded = [this](const char* unit) { return tree().nodes().childCount(node(unit)); };
    tree().setFocus();
    whenItYields([this] {
        whenItYields([this] {
            QTest::keyClick(&tree(), Qt::Key_Down);
            EXPECT_EQ(combo().text(), "Uno :");
        });
        QTest::keyClick(&tree(), Qt::Key_Down);
        EXPECT_EQ(listed(), (Names{"atlas", "viaje", "Lista.TXT"})) << "without waiting for the other load";
        EXPECT_EQ(combo().text(), "Tres :");
        EXPECT_TRUE(isOn("Parar1"));
    });
    click("Dos :");
    EXPECT_EQ(tree().nodes().count(), 3 + 2 * 4);
    EXPECT_EQ(std::tuple(loaded("Dos :"), loaded("Tres :"), loaded("Uno :")), std::tuple(2, 0, 2));
    EXPECT_EQ(combo().text(), "Uno :");
    EXPECT_EQ(status(),
              in("  Unidad: Uno :  Carpetas: 4  Archivos: 4", "  Unit: Uno :  Folders: 4  Files: 4"));
    expectIdle();
    click("Tres :");
    EXPECT_EQ(loaded("Tres :"), 2);

    // A folder of another unit, and the unit itself once more.
    choose("reciente");
    click("Uno :");
    whenItYields([this] { click("Uno :\\viaje"); });
    click("Dos :");
    EXPECT_EQ(listed(), (Names{"2003", "mapa.txt"}));
    EXPECT_EQ(combo().text(), "Uno :\\viaje");
    whenItYields([this] { click("Tres :"); });
    click("Tres :");
    EXPECT_EQ(tree().nodes().count(), 3 + 3 * 4);
    EXPECT_FALSE(fs::exists(folder / "temp.ejm"));
    expectIdle();
}

TEST_P(Stopping, AnythingMayHappenToTheUnitDuringItsLoad) {
    import("Fotos", discs.disc("dvd"));
    const std::pair<std::function<void()>, int> deeds[] = {
        // and the nodes that are left
        {[this] { choose("reciente"); }, 1},
        {[this] { choose("cerrar"); }, 0},
        {[this] { newCatalogue("other.zrq"); }, 0},
        {[this] { rename("Fotos :", "New"); }, 5},  // listed anew
        {[this] { click("Fotos :"); }, 5},
        {[this] { press(frame::Toolbar::Up); }, 5},
        {[this] {
             messages.answers = {true};
             choose("borrarunidad1");
         },
         0},
    };
    for (const bool byCombo : {false, true})
        for (const auto& [deed, left] : deeds) {
            dialogs.answers = {QString::fromStdString(path)};
            choose("abrir");
            if (roots().empty()) import("Fotos", discs.disc("dvd"));
            if (roots()[0] == "New :") rename("New :", "Fotos");
            choose("reciente");
            whenItYields(deed);
            if (byCombo) {
                chooseItem(combo(), 1);
            } else {
                click("Fotos :");
            }
            QCoreApplication::processEvents();
            EXPECT_TRUE(tree().nodes().isConsistent());
            EXPECT_EQ(tree().nodes().count(), left);
            if (isOn("cerrar")) expectIdle();
        }
}

TEST_P(Stopping, AJobThatEndsLeavesTheOtherItsStop) {
    import("Uno", discs.disc("dvd"));
    choose("reciente");
    whenItYields([this] {
        click("Uno :");
        EXPECT_EQ(tree().nodes().childCount(node("Uno :")), 2) << "its load has ended";
        EXPECT_TRUE(isOn("Parar1") && frame().toolbar.isEnabled(frame::Toolbar::Stop)) << "the scan goes on";
        rename("Uno :", "Tres");  // which lists all units anew, that of the scan too
    });
    import("Dos", discs.disc("dvd"));
    EXPECT_EQ(roots(), (Names{"Tres :", "Dos :"}));
    EXPECT_EQ(control<QComboBox>("ImageCombo3").count(), 3);
    expectIdle();
}

// The rows read so far stay, and the unit is shown once.
TEST_P(Stopping, WhateverTakesTheCatalogueAwayEndsItsScanInSilence) {
    const std::string other = folder / "other.zrq";
    const std::map<std::string, Names> leaving{
        {"nuevo", {}}, {"abrir", {}}, {"reciente", {"Lenta :"}}, {"guardar", {"Lenta :"}}, {"cerrar", {}}};
    for (const char* entry : {"nuevo", "abrir", "reciente", "cerrar", "guardar"}) {
        SCOPED_TRACE(entry);
        const std::string scanned = newCatalogue(std::string(entry) + ".zrq");
        std::string told;
        whenItYields([&] {
            dialogs.answers = {QString::fromStdString(other)};
            choose(entry);
            told = status();
            dialogs.answers.clear();  // not all of them ask
        });
        import("Lenta", discs.disc("dvd"));
        EXPECT_EQ(rowCount(scanned), 1);
        EXPECT_EQ(rowCount(other), std::string(entry) == "guardar" ? 1 : 0);
        EXPECT_EQ(roots(), leaving.at(entry));
        EXPECT_EQ(status(), told) << "what the new catalogue shows stays";
        EXPECT_EQ(control<QLineEdit>("Text3").text() + control<QLineEdit>("Text4").text(), "");
        expectIdle();
    }
    newCatalogue("other.zrq");
    messages.answers = {true, true};
    whenItYields([this] { choose("eliminar"); });
    import("Lenta", discs.disc("dvd"));
    EXPECT_EQ(rowCount(other), 0);
    EXPECT_TRUE(messages.shown.empty());

    // A cancelled dialog, or a file that cannot be written, takes nothing away.
    whenItYields([this] {
        for (const char* entry : {"nuevo", "guardar"}) {
            choose(entry);
            dialogs.answers = {QString::fromStdString(folder / "none/x.zrq")};
            choose(entry);
        }
    });
    import("Lenta", discs.disc("dvd"));
    EXPECT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(rowCount(other), 8);
}

TEST_P(Stopping, NothingElseIsCataloguedDuringAScan) {
    auto& name = control<QLineEdit>("Text3");
    whenItYields([&] {
        name.clear();
        enterName("");
        addByHand("Cds", "x");
        name.clear();
        import("Otra", discs.disc("dvd"));
        EXPECT_TRUE(isOn("Parar1"));
    });
    import("Fotos", discs.disc("dvd"));
    EXPECT_EQ(rowCount(path), 8);
    EXPECT_EQ(roots(), (Names{"Fotos :"}));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(name.text(), "Otra") << "what was typed for the next unit stays";
    expectIdle();
}

// Others use the bar meanwhile, and another panel may stand in front when the scan ends.
TEST_P(Stopping, AScanShowsItsProgressAndLeavesWhatIsLookedAt) {
    import("Fotos", discs.disc("dvd"));
    int shown = 0;
    whenItYields([&] {
        click("Fotos :");  // a load has the bar, too
        choose("buscar");
        search("map");
        EXPECT_TRUE(control("ProgressBar1").isHidden());
        whenItYields([&] {
            const auto& bar = control<QProgressBar>("ProgressBar1");
            shown = bar.isVisible() ? bar.value() : 0;
        });
    });
    import("Lenta", discs.disc("dvd"));
    EXPECT_EQ(shown, 2) << "folders of the first level";
    EXPECT_EQ(pressed(), (std::vector<int>{Toolbar::Search}));
    EXPECT_EQ(listed(), (Names{"mapa.txt"}));
    expectIdle();
}

TEST_P(Stopping, WhatIsMissingFromAUnitIsTold) {
    const std::string disc = discs.disc("dvd");
    whenItYields([&] { whenItYields([&] { fs::remove_all(disc + "/viaje"); }); });
    import("Fotos", disc);
    EXPECT_EQ(status(), in("  Unidades: 1  Carpetas: 2  Archivos: 1"
                           "  Sin catalogar: 1 carpeta que no se pudo leer (E:\\viaje)",
                           "  Units: 1  Folders: 2  Files: 1"
                           "  Not catalogued: 1 folder that could not be read (E:\\viaje)"));
    fs::create_directory(disc + "/nada");
    import("Nada", disc + "/nada");
    EXPECT_TRUE(
        status().ends_with(in("  Nada : no hay nada que catalogar: ¿está el medio en su sitio?",
                              "  Nada : there is nothing to catalogue: is the medium in its place?")));
    fs::remove(disc + "/nada");
    const std::string lost = in("  Filas sin guardar: 1. No se pudo leer o escribir.",
                                "  Rows not stored: 1. It could not be read or written.");
    std::optional<test::FileSizeLimit> limit;
    whenItYields([&] { limit.emplace(1); });
    import("Otra", disc);
    EXPECT_TRUE(status().ends_with(lost)) << status();
    addByHand("Cds", "x");
    EXPECT_TRUE(status().ends_with(lost)) << status();
    EXPECT_TRUE(messages.shown.empty());
}

TEST_P(Stopping, ClosingTheWindowEndsAScanAndALoad) {
    import("Fotos", discs.disc("dvd"));
    whenItYields([this] { form->close(); });
    click("Fotos :");
    EXPECT_FALSE(form->isVisible());
    start();
    choose("reciente");
    whenItYields([this] { form->close(); });
    import("Otra", discs.disc("dvd"));
    EXPECT_EQ(rowCount(path, "disco=('Otra :')"), 1);
    EXPECT_TRUE(messages.shown.empty());
}

INSTANTIATE_TEST_SUITE_P(, Stopping, testing::Values(core::Language::Spanish, core::Language::English));

}  // namespace
