// How the window opens, copies and closes catalogue files, and what it makes of files that are none.

#include <sqlite3.h>

#include <QMenu>
#include <QTimer>
#include <functional>
#include <utility>

#include "support/main_window.h"

namespace {

namespace fs = std::filesystem;
using core::Language;
using frame::Toolbar;
using test::Names;

class CatalogueLife : public test::MainWindow {
  protected:
    void open(const std::string& path) {
        dialogs.answers.push_back(QString::fromStdString(path));
        choose("abrir");
    }
    // The open catalogue, which is also the last one.
    void expectOpen(const std::string& path, const Names& units) {
        EXPECT_EQ(caption(), "Zarquelin - " + path);
        EXPECT_EQ(platform::GetSetting("lastfile"), path);
        EXPECT_EQ(roots(), units);
    }
};

TEST_F(CatalogueLife, OfOpeningsWithinEachOtherTheLastOneStands) {
    start();
    newCatalogue("a.zrq");
    addByHand("Cds", "pelis");
    const std::string second = newCatalogue("b.zrq");
    addByHand("Dvds", "mas");
    addByHand("Mas", "mas");
    for (int yield = 0; yield < 4; ++yield) {
        const auto atYield = [&](const std::function<void()>& act) {
            std::function<void(int)> wait = [&](int left) {
                QTimer::singleShot(0, form.get(), [&, left] { left > 0 ? wait(left - 1) : act(); });
            };
            wait(yield);
            open(folder / "a.zrq");
            QApplication::processEvents();
        };
        atYield([&] { open(second); });
        expectOpen(second, {"Dvds :", "Mas :"});
        EXPECT_EQ(items(combo()), (Names{"Dvds :", "Mas :"}));
        EXPECT_EQ(status(), "  Units: 2  Folders: 0  Files: 0");
        atYield([&] { choose("cerrar"); });
        EXPECT_EQ(roots(), Names{});
        EXPECT_EQ(items(combo()), Names{});
    }
}

TEST_F(CatalogueLife, SaveAsGoesOnWithTheCopy) {
    start();
    const std::string first = newCatalogue("a & b.zrq");
    addByHand("Cds", "pelis");
    const std::string before = test::readFile(first);
    const std::string copy = folder / "copia ñ.zrq";
    dialogs.answers = {QString::fromStdString(copy)};
    choose("guardar");
    EXPECT_EQ(dialogs.titles.back(), "Save catalog as ...");
    expectOpen(copy, {"Cds :"});
    EXPECT_EQ(items(control<controls::ImageCombo>("ImageCombo3")), (Names{"Complete catalog:", "Cds :"}));
    addByHand("Dvds", "mas");
    EXPECT_EQ(test::readFile(first), before);
    EXPECT_EQ(rowCount(copy), 2);
    const auto recent = [this] { return frame().toolbar.button(frame::Toolbar::Up)->menu()->actions(); };
    ASSERT_EQ(recent().size(), 1) << "the last one before is offered";
    EXPECT_EQ(recent()[0]->text().toStdString(), folder / "a && b.zrq");
    recent()[0]->trigger();
    expectOpen(first, {"Cds :"});
    choose("cerrar");
    open(copy);

    // Onto itself, and where nothing can be written: said, and nothing changes.
    for (const std::string& target : {copy, folder / "none/x.zrq"}) {
        dialogs.answers = {QString::fromStdString(target)};
        messages.shown.clear();
        choose("guardar");
        EXPECT_EQ(messages.shown.size(), 1u);
        expectOpen(copy, {"Cds :", "Dvds :"});
        EXPECT_EQ(rowCount(copy), 2);
    }
}

TEST_F(CatalogueLife, CancelledDialogsChangeNothing) {
    start();
    platform::SaveSetting("lastfile", "/last.zrq");
    choose("nuevo");
    choose("abrir");
    EXPECT_EQ(caption() + platform::GetSetting("lastfile"), "Zarquelin/last.zrq");
    EXPECT_FALSE(isOn("cerrar"));

    const std::string path = newCatalogue();
    addByHand("Cds", "pelis");
    platform::SaveSetting("lastfile", "/elsewhere.zrq");
    press(frame::Toolbar::Open);
    expectOpen(path, {"Cds :"});
    choose("nuevo");
    EXPECT_EQ(items(combo()), (Names{"Cds :"}));
    EXPECT_EQ(pressed(), (std::vector<int>{frame::Toolbar::New}));
}

TEST_F(CatalogueLife, ARecentFileThatIsGoneShowsTheSearchPanelInSilence) {
    start();
    choose("reciente");
    search("a");
    EXPECT_EQ(std::exchange(messages.shown, {}).at(0).text, "No catalogue is open.");
    const std::string path = newCatalogue();
    addByHand("Cds", "pelis");
    choose("explore");
    platform::SaveSetting("lastfile", folder / "gone.zrq");
    choose("reciente");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(control("Picture1").isVisible() && control("Picture2").isHidden());
    EXPECT_EQ(pressed(), (std::vector<int>{frame::Toolbar::Explore}));
    EXPECT_EQ(roots(), (Names{"Cds :"}));

    platform::SaveSetting("lastfile", path);
    choose("reciente");
    EXPECT_TRUE(control("Picture1").isHidden());
    choose("cerrar");
    EXPECT_EQ(items(combo()), Names{});
    open(path);
    EXPECT_TRUE(frame().toolbar.isPressed(frame::Toolbar::Separator3));
    expectOpen(path, {"Cds :"});
    platform::SaveSetting("lastfile", "");
    start(Language::Spanish, path);
    expectOpen(path, {"Cds :"});
    start(Language::Spanish, folder / "none.zrq");
    EXPECT_EQ(roots(), Names{});
    EXPECT_FALSE(fs::exists(folder / "none.zrq"));
}

// An empty list, or the results of another catalogue, would pass for the answer.
class UnreadableFile : public test::BilingualWindow {};
TEST_P(UnreadableFile, IsToldByASearchAndARename) {
    startWithFotos(GetParam());
    const std::string path = folder / "other.zrq";
    newCatalogue("other.zrq");
    addByHand("Cds", "mapas");
    choose("buscar");
    const auto damage = [&](const std::string& bytes, const std::string& why) {
        search("map");
        ASSERT_EQ(listed(), (Names{"mapas"}));
        const std::string sound = test::readFile(path);
        fs::remove(path);
        if (!bytes.empty()) test::writeFile(path, bytes);
        search("map");
        EXPECT_EQ(listed(), Names{});
        EXPECT_EQ(messages.shown.back().text.toStdString(), path + "\n" + why);
        EXPECT_EQ(status(), in(" Carpetas encontradas: 0  Archivos encontrados: 0",
                               " Folders found: 0  Files found: 0"));
        choose("explorar");
        messages.shown.clear();
        rename("Cds :", "Otra");
        EXPECT_EQ(messages.shown.back().text.toStdString(), path + "\n" + why);
        EXPECT_EQ(roots(), (Names{"Cds :"}));
        choose("buscar");
        fs::remove(path);
        test::writeFile(path, sound);
    };
    damage("", in("No existe.", "It does not exist."));
    damage("garbage", in("No es un catálogo.", "It is not a catalogue."));
    messages.shown.clear();
    search("[");  // a refused statement
    EXPECT_TRUE(messages.shown.empty());

    dialogs.answers = {QString::fromStdString(folder / "none/x.zrq")};
    choose("nuevo");
    EXPECT_EQ(messages.shown.back().text.toStdString(),
              in("No se pudo escribir el archivo ", "This file could not be written: ") +
                  (folder / "none/x.zrq") + "\n" + in("No se puede abrir.", "It cannot be opened."));
    for (const std::string& why :
         {in("No existe.", "It does not exist."), in("No se puede abrir.", "It cannot be opened.")}) {
        fs::remove(path);
        if (why != in("No existe.", "It does not exist.")) fs::create_directory(path);
        dialogs.answers = {QString::fromStdString(folder / "x.zrq")};
        choose("guardar");
        EXPECT_EQ(messages.shown.back().text.toStdString(), path + "\n" + why) << "of what was to be copied";
    }
}
TEST_P(UnreadableFile, IsShownOnceItIsRepaired) {
    const std::string path = startWithFotos(GetParam());
    std::string bytes = test::readFile(path);
    bytes[71] ^= 2;  // the mark
    test::writeFile(path, bytes);
    choose("reciente");
    EXPECT_EQ(roots(), Names{});
    choose("reparar");
    EXPECT_EQ(roots(), (Names{"Fotos :"}));
    EXPECT_EQ(status(), in("  Reparado. El archivo dañado se conserva como ",
                           "  Repaired. The damaged file is kept as ") +
                            std::string("test.zrq.damaged"));
    click("Fotos :");
    fs::remove(path);
    for (const char* failing : {"Propiedades", "compactar", "reparar"}) {
        frame().status.setText("");
        choose(failing);
        EXPECT_EQ(status(), in("  test.zrq: No existe.", "  test.zrq: It does not exist."));
    }
    EXPECT_TRUE(messages.shown.empty());
}
INSTANTIATE_TEST_SUITE_P(, UnreadableFile, testing::Values(Language::Spanish, Language::English));

// Opens as far as it can be read, does all that a user may try, and leaves every byte as it was.
class Bad : public CatalogueLife {
  protected:
    void useInEveryWay(const std::string& path) {
        open(path);
        EXPECT_EQ(caption(), "Zarquelin - " + path);
        for (const std::string& root : roots()) click(QString::fromStdString(root));
        choose("arriba");
        choose("actualizar1");
        choose("buscar");
        search("a");
        choose("explorar");
        choose("graficos");
    }
    void SetUp() override { good = startWithFotos(); }
    // And a sound catalogue opens after it.
    void TearDown() override {
        open(good);
        EXPECT_EQ(roots(), (Names{"Fotos :"}));
        click("Fotos :");
        EXPECT_EQ(tree().nodes().count(), 5);
        EXPECT_EQ(listed(), (Names{"atlas", "viaje", "Lista.TXT"}));
    }
    std::string good;
};

TEST_F(Bad, GarbageAndTruncatedFilesStayAsTheyAre) {
    const std::string whole = test::readFile(good);
    std::map<std::string, std::string> files{{"empty", ""}, {"garbage", std::string(20'000, 'g')}};
    for (const std::size_t length : {1ul, 99ul, 100ul, 1024ul, 4096ul, whole.size() / 2, whole.size() - 1})
        files["cut " + std::to_string(length)] = whole.substr(0, length);
    std::string holed = whole;
    holed.replace(4096, 4096, 4096, '\x5a');
    files["holed"] = holed;
    for (const auto& [name, bytes] : files) {
        SCOPED_TRACE(name);
        const std::string path = folder / (name + ".zrq");
        test::writeFile(path, bytes);
        useInEveryWay(path);
        EXPECT_TRUE(test::readFile(path) == bytes) << "changed";
        EXPECT_FALSE(fs::exists(path + "-journal"));
    }
}

TEST_F(Bad, FoldersAndLockedAndReadOnlyFilesDoNoHarm) {
    fs::create_directory(folder / "folder.zrq");
    useInEveryWay(folder / "folder.zrq");
    EXPECT_TRUE(fs::is_empty(folder / "folder.zrq"));

    const std::string locked = folder / "locked.zrq";
    fs::copy_file(good, locked);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(locked.c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
    open(locked);
    EXPECT_EQ(roots(), Names{});
    EXPECT_EQ(status(), "  locked.zrq: Another program is using it.");
    sqlite3_exec(other, "commit", nullptr, nullptr, nullptr);
    open(locked);
    EXPECT_EQ(roots(), (Names{"Fotos :"}));
    sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr);
    for (const auto& ask : std::initializer_list<std::function<void()>>{
             [this] { click("Fotos :"); }, [this] { choose("arriba"); }, [this] { choose("actualizar1"); }}) {
        ask();
        EXPECT_EQ(listed(), Names{});
        EXPECT_EQ(status(), "  locked.zrq: Another program is using it.");
        frame().status.setText("");
    }
    sqlite3_close(other);

    const std::string readOnly = folder / "readonly.zrq";
    fs::copy_file(good, readOnly);
    fs::permissions(readOnly, fs::perms::owner_read);
    const std::string bytes = test::readFile(readOnly);
    useInEveryWay(readOnly);
    EXPECT_EQ(tree().nodes().count(), 5) << "the working copy can be cut down all the same";
    EXPECT_TRUE(test::readFile(readOnly) == bytes);
}

TEST_F(Bad, ALoadThatFailsLeavesNoHalfOfTheUnit) {
    fs::create_directories(folder / "temp.ejm/full");  // so that there is no working copy
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(good.c_str(), &other), SQLITE_OK);
    QObject::connect(
        &tree().nodes(), &QAbstractItemModel::rowsInserted, form.get(),
        [&] { EXPECT_EQ(sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK); },
        Qt::SingleShotConnection);
    click("Fotos :");
    EXPECT_EQ(tree().nodes().count(), 1);
    EXPECT_TRUE(status().starts_with("  test.zrq: ")) << status();
    sqlite3_close(other);
}

}  // namespace
