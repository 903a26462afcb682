// How the window opens, copies and closes catalogue files, and what it makes of files that are none.

#include <sqlite3.h>
#include <unistd.h>

#include <fstream>

#include "support/main_window.h"

namespace {

namespace fs = std::filesystem;
using core::Language;
using shell::Toolbar;
using test::Names;

class CatalogueLife : public test::MainWindow {
  protected:
    void open(const std::string& path) {
        dialogs.answers.push_back(QString::fromStdString(path));
        choose("abrir");
    }
    std::string last() { return platform::GetSetting("lastfile"); }
};

TEST_F(CatalogueLife, SaveAsGoesOnWithTheCopy) {
    start();
    const std::string first = newCatalogue("first.zrq");
    addByHand("Cds", "pelis");
    const std::string before = test::readFile(first);
    const std::string copy = folder / "copia ñ.zrq";
    choose("guardar");  // cancelled
    EXPECT_EQ(caption(), "Zarquelin - " + first);

    dialogs.answers = {QString::fromStdString(copy)};
    choose("guardar");
    EXPECT_EQ(dialogs.titles.back(), "Save catalog as ...");
    EXPECT_EQ(caption(), "Zarquelin - " + copy);
    EXPECT_EQ(last(), copy);
    EXPECT_EQ(roots(), (Names{"Cds :"}));
    EXPECT_EQ(items(surface().imageCombo3), (Names{"Complete catalog:", "Cds :"}));
    addByHand("Dvds", "mas");
    EXPECT_EQ(test::readFile(first), before);
    EXPECT_EQ(rowCount(copy), 2);
    // The file that was the last one before is offered below the Up button.
    const auto entries = frame().toolbar.button(Toolbar::Up)->menu()->actions();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0]->text().toStdString(), first);

    // Onto itself, and where nothing can be written: said, and nothing changes.
    for (const std::string& target : {copy, folder / "none/x.zrq"}) {
        dialogs.answers = {QString::fromStdString(target)};
        const std::size_t said = messages.shown.size();
        choose("guardar");
        EXPECT_EQ(messages.shown.size(), said + 1);
        EXPECT_EQ(caption(), "Zarquelin - " + copy);
        EXPECT_EQ(last(), copy);
        EXPECT_EQ(rowCount(copy), 2);
        EXPECT_EQ(roots(), (Names{"Cds :", "Dvds :"}));
    }
}

TEST_F(CatalogueLife, CancelledAndFailedDialogsChangeNothing) {
    start();
    choose("nuevo");
    choose("abrir");
    EXPECT_EQ(caption() + last(), "Zarquelin");
    EXPECT_FALSE(isOn("cerrar"));

    const std::string path = newCatalogue();
    addByHand("Cds", "pelis");
    platform::SaveSetting("lastfile", "/elsewhere.zrq");
    press(Toolbar::Open);
    EXPECT_EQ(last(), path);
    choose("nuevo");
    EXPECT_EQ(items(combo()), (Names{"Cds :"}));
    EXPECT_EQ(pressed(), (std::vector<int>{Toolbar::New}));
    newCatalogue("none/x.zrq");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].title, "zarquelin");
    EXPECT_EQ(caption(), "Zarquelin - " + path);
    EXPECT_EQ(last(), path);
    EXPECT_EQ(roots(), (Names{"Cds :"}));
    click("Cds :");
    EXPECT_EQ(listed(), (Names{"pelis"}));
}

TEST_F(CatalogueLife, ARecentFileThatIsGoneShowsTheSearchPanelInSilence) {
    start();
    const std::string path = newCatalogue();
    addByHand("Cds", "pelis");
    choose("explore");
    platform::SaveSetting("lastfile", folder / "gone.zrq");
    choose("reciente");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(control("Picture1").isVisible() && control("Picture2").isHidden());
    EXPECT_EQ(control("Picture1").geometry(), tree().geometry());
    EXPECT_EQ(pressed(), (std::vector<int>{Toolbar::Explore}));
    EXPECT_EQ(caption(), "Zarquelin - " + path);
    EXPECT_EQ(roots(), (Names{"Cds :"}));

    platform::SaveSetting("lastfile", path);
    choose("reciente");
    EXPECT_TRUE(control("Picture1").isHidden());
    EXPECT_EQ(roots(), (Names{"Cds :"}));
    choose("cerrar");
    EXPECT_EQ(items(combo()), Names{});
    open(path);
    EXPECT_TRUE(frame().toolbar.isPressed(Toolbar::Separator3));
    EXPECT_EQ(roots(), (Names{"Cds :"}));
}

TEST_F(CatalogueLife, TheCommandLineOpensItsCatalogue) {
    const std::string path = folder / "a.zrq";
    start();
    newCatalogue("a.zrq");
    addByHand("Cds", "pelis");
    platform::SaveSetting("lastfile", "");
    start(Language::Spanish, path);
    EXPECT_EQ(caption(), "Zarquelin - " + path);
    EXPECT_EQ(roots(), (Names{"Cds :"}));
    EXPECT_EQ(status(), "  Unidades: 1  Carpetas: 0  Archivos: 0");
    EXPECT_EQ(last(), path);
    start(Language::Spanish, folder / "none.zrq");
    EXPECT_EQ(roots(), Names{});
    EXPECT_FALSE(fs::exists(folder / "none.zrq"));
}

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
    // And a sound catalogue opens after it.
    void expectSoundOneOpens() {
        open(m_good);
        EXPECT_EQ(roots(), (Names{"Fotos :"}));
        click("Fotos :");
        EXPECT_EQ(tree().nodes().count(), 5);
        EXPECT_EQ(listed(), (Names{"atlas", "viaje", "Lista.TXT"}));
    }
    void makeGood() {
        test::writeFotos(discs);
        start();
        m_good = newCatalogue("good.zrq");
        import("Fotos", discs.disc("dvd"));
    }
    std::string m_good;
};

TEST_F(Bad, GarbageTruncatedAndForeignFilesStayAsTheyAre) {
    makeGood();
    const std::string whole = test::readFile(m_good);
    std::map<std::string, std::string> files{{"empty", ""}, {"garbage", std::string(20'000, 'g')}};
    for (const std::size_t length : {1ul, 99ul, 100ul, 1024ul, 4096ul, whole.size() / 2, whole.size() - 1})
        files["cut " + std::to_string(length)] = whole.substr(0, length);
    std::string holed = whole;
    holed.replace(4096, 4096, 4096, '\x5a');
    files["holed"] = holed;
    {
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open((folder / "other").c_str(), &other), SQLITE_OK);
        sqlite3_exec(other, "create table contacts(name)", nullptr, nullptr, nullptr);
        sqlite3_close(other);
        files["foreign"] = test::readFile(folder / "other");
    }
    for (const auto& [name, bytes] : files) {
        SCOPED_TRACE(name);
        const std::string path = folder / (name + ".zrq");
        test::writeFile(path, bytes);
        useInEveryWay(path);
        EXPECT_TRUE(test::readFile(path) == bytes) << "changed";
        EXPECT_FALSE(fs::exists(path + "-journal"));
    }
    expectSoundOneOpens();
}

TEST_F(Bad, FoldersAndLockedAndReadOnlyFilesDoNoHarm) {
    makeGood();
    fs::create_directory(folder / "folder.zrq");
    useInEveryWay(folder / "folder.zrq");
    EXPECT_TRUE(fs::is_empty(folder / "folder.zrq"));

    const std::string locked = folder / "locked.zrq";
    fs::copy_file(m_good, locked);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(locked.c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
    open(locked);
    EXPECT_EQ(roots(), Names{});
    sqlite3_exec(other, "commit", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    open(locked);
    EXPECT_EQ(roots(), (Names{"Fotos :"}));

    const std::string readOnly = folder / "readonly.zrq";
    fs::copy_file(m_good, readOnly);
    fs::permissions(readOnly, fs::perms::owner_read);
    const std::string bytes = test::readFile(readOnly);
    useInEveryWay(readOnly);
    EXPECT_EQ(tree().nodes().count(), 5) << "the working copy can be cut down all the same";
    EXPECT_TRUE(test::readFile(readOnly) == bytes);

    if (::geteuid() != 0) {
        fs::permissions(readOnly, fs::perms::none);
        useInEveryWay(readOnly);
        EXPECT_EQ(roots(), Names{});
    }
    expectSoundOneOpens();
}

}  // namespace
