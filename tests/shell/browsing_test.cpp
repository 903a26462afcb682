// A catalogue filled, browsed, searched and looked at in every way, in the real window.

#include "frame/long_work.h"
#include "platform/waiting.h"
#include "support/catalogue_fixture.h"
#include "support/main_window.h"

namespace {

using core::Language;
using frame::Toolbar;
using test::Names;

class Browsing : public test::BilingualWindow {
  protected:
    void expectOpen(bool open) {
        EXPECT_TRUE(isOn("guardar") == open && frame().toolbar.isEnabled(frame::Toolbar::Up) == open);
        for (const char* pane : {"TreeView1", "ListView1", "imgSplitter"})
            EXPECT_EQ(control(pane).isVisible(), open) << pane;
    }
};
using TheWindow = test::MainWindow;

struct Painted : QWidget {
    explicit Painted(QWidget* parent) : QWidget(parent) { show(); }
    void paintEvent(QPaintEvent*) override { isPainted = true; }
    bool isPainted = false;
};

INSTANTIATE_TEST_SUITE_P(, Browsing, testing::Values(Language::Spanish, Language::English));

TEST_P(Browsing, FromANewCatalogueToTheSearchAndBack) {
    writeFotos();
    start(GetParam());
    expectOpen(false);
    EXPECT_EQ(caption(), "Zarquelin");
    EXPECT_TRUE(isOn("reciente"));

    const std::string path = newCatalogue();
    EXPECT_EQ(dialogs.titles.back().toStdString(), in("Nuevo catálogo", "New catalog"));
    EXPECT_EQ(dialogs.filters.back(), "Archivos de Zarquelin (*.zrq)|*.zrq|");
    expectOpen(true);
    EXPECT_EQ(caption(), "Zarquelin - " + path);
    EXPECT_EQ(pressed(), (std::vector<int>{frame::Toolbar::New}));
    EXPECT_EQ(status(), in("  Unidades: 0  Carpetas: 0  Archivos: 0", "  Units: 0  Folders: 0  Files: 0"));
    EXPECT_EQ(items(control<controls::ImageCombo>("ImageCombo3")),
              (Names{in("Cátalogo completo:", "Complete catalog:")}));
    EXPECT_EQ(platform::GetSetting("lastfile"), path);

    press(frame::Toolbar::Import);
    EXPECT_EQ(pressed(), (std::vector<int>{frame::Toolbar::Import}));
    import("Fotos", discs.disc("dvd"));
    EXPECT_TRUE(control("Picture2").isHidden());
    EXPECT_EQ(pressed(), (std::vector<int>{frame::Toolbar::Explore}));
    EXPECT_EQ(status(), in("  Unidades: 1  Carpetas: 4  Archivos: 4", "  Units: 1  Folders: 4  Files: 4"));
    EXPECT_EQ(items(combo()), (Names{"Fotos :"}));

    // The first click loads the folders.
    choose("arriba");  // nothing was clicked yet
    EXPECT_EQ(listed(), Names{});
    click("Fotos :");
    EXPECT_FALSE(tree().isExpanded(node("Fotos :")));
    EXPECT_EQ(listed(), (Names{"atlas", "viaje", "Lista.TXT"}));
    EXPECT_EQ(surface().lists.listView1.subItem(2, 7), "bLista.TXT");
    EXPECT_EQ(status(),
              in("  Unidad: Fotos :  Carpetas: 4  Archivos: 4", "  Unit: Fotos :  Folders: 4  Files: 4"));
    EXPECT_EQ(size(), in("Tamaño: 1000 KB", "Size: 1000 KB"));
    EXPECT_EQ(kind(), in("Unidad de carpetas y archivos", "Folders and files unit"));
    EXPECT_EQ(frame().status.picture(), 4);
    tree().setExpanded(node("Fotos :"), true);
    click("Fotos :");
    EXPECT_EQ(surface().lists.listView1.subItem(2, 7), "blista.txt") << "an expanded unit's keys";

    click("Fotos :\\viaje");
    EXPECT_EQ(listed(), (Names{"2003", "mapa.txt"}));
    EXPECT_EQ(status(), in("  Carpetas: 1  Archivos: 2", "  Folders: 1  Files: 2"));
    EXPECT_EQ(items(combo()), (Names{"Fotos :", "Fotos :\\viaje"}));
    EXPECT_EQ(frame().status.picture(), 2);
    click("Fotos :\\viaje\\2003\\playa");
    EXPECT_EQ(items(combo()), (Names{"Fotos :", "Fotos :\\viaje\\2003\\playa"}));

    // Up to the unit: the path item stays, and every file enters the size.
    press(frame::Toolbar::Up);
    EXPECT_EQ(listed(), (Names{"playa", "a.jpg"}));
    EXPECT_EQ(combo().text(), "Fotos :\\viaje\\2003");
    EXPECT_EQ(size(), in("Tamaño: 993 KB", "Size: 993 KB"));
    choose("arriba");
    EXPECT_EQ(status(), in("  Carpetas: 1  Archivos: 2", "  Folders: 1  Files: 2"));
    choose("arriba");
    EXPECT_EQ(combo().text(), "Fotos :");
    EXPECT_EQ(items(combo()).size(), 2u);
    EXPECT_EQ(size(), in("Tamaño: 1 MB", "Size: 1 MB"));

    // The path combo: typing drops the path, choosing lists.
    click("Fotos :\\viaje");
    combo().setFocus();
    QTest::keyClick(&combo(), Qt::Key_End);
    QTest::keyClick(&combo(), Qt::Key_X);
    EXPECT_EQ(items(combo()), (Names{"Fotos :"}));
    EXPECT_EQ(combo().text(), "Fotos :\\viajex");
    chooseItem(combo(), 1);
    EXPECT_EQ(combo().text(), "Fotos :");
    EXPECT_EQ(listed(), (Names{"atlas", "viaje", "Lista.TXT"}));
    EXPECT_EQ(tree().selected(), node("Fotos :"));

    press(frame::Toolbar::Search);
    EXPECT_EQ(pressed(), (std::vector<int>{frame::Toolbar::Search}));
    EXPECT_TRUE(control("Picture1").isVisible() && control("ListView2").isVisible());
    EXPECT_EQ(control("Picture1").geometry(), tree().geometry());
    EXPECT_EQ(focused(), "Combo2");
    search("map");
    EXPECT_EQ(listed(), (Names{"mapa.txt"}));
    press(frame::Toolbar::Explore);
    EXPECT_TRUE(control("Picture1").isHidden() && control("ListView2").isHidden());
    EXPECT_EQ(QApplication::focusWidget(), &tree());
    EXPECT_EQ(listed(), (Names{"atlas", "viaje", "Lista.TXT"}));

    press(frame::Toolbar::Search);
    choose("actualizar1");
    EXPECT_TRUE(control("ListView2").isHidden() && frame().toolbar.isPressed(frame::Toolbar::Refresh));
    press(frame::Toolbar::Refresh);
    EXPECT_FALSE(frame().toolbar.isPressed(frame::Toolbar::Refresh));

    choose("cerrar");
    expectOpen(false);
    EXPECT_EQ(caption() + status() + size() + kind(), "Zarquelin");
    EXPECT_EQ(pressed(), std::vector<int>{});
    choose("reciente");
    expectOpen(true);
    EXPECT_EQ(roots(), (Names{"Fotos :"}));
    choose("buscar");
    EXPECT_EQ(listed(), Names{}) << "what was found went with its catalogue";
    EXPECT_TRUE(messages.shown.empty());
}

// Names that read as patterns, in every place that joins them into one.
TEST_P(Browsing, OddNamesListCountAndStepLikeAnyOther) {
    for (const char* file : {"Music [2003]/C# #1/what?/a [1].mp3", "Music [2003]/C# #1/b.txt", "*/star.txt"})
        discs.write("dvd", file, std::string(2048, 'x'));
    start(GetParam());
    newCatalogue();
    import("Fotos", discs.disc("dvd"));
    click("Fotos :");
    const QString music("Fotos :\\Music [2003]"), sharp(music + "\\C# #1");

    click("Fotos :\\*");
    EXPECT_EQ(listed().back(), "star.txt") << "no unit, although the star would match one";
    click(music);
    EXPECT_EQ(listed(), (Names{"C# #1"}));
    EXPECT_EQ(status(), in("  Carpetas: 1  Archivos: 2", "  Folders: 1  Files: 2"));
    EXPECT_EQ(size(), in("Tamaño: 4 KB", "Size: 4 KB"));
    doubleClickRow(surface().lists.listView1, 0);
    EXPECT_EQ(listed(), (Names{"what?", "b.txt"}));
    EXPECT_EQ(status(), in("  Carpetas: 0  Archivos: 1", "  Folders: 0  Files: 1"));
    EXPECT_EQ(tree().selected(), node(sharp));
    doubleClickRow(surface().lists.listView1, 0);
    EXPECT_EQ(listed(), (Names{"a [1].mp3"}));
    EXPECT_EQ(combo().text(), sharp + "\\what?");
    choose("arriba");
    EXPECT_EQ(listed(), (Names{"what?", "b.txt"}));
    EXPECT_EQ(combo().text(), sharp);

    click(sharp);
    choose("graficos");
    EXPECT_EQ(control("Form4").findChild<QLabel*>("Label10(4)")->text(), "2");
    choose("buscar");
    search("music");
    EXPECT_EQ(listed(), (Names{"Music [2003]"}));
    for (const Names& step : {Names{"C# #1"}, {"what?", "b.txt"}, {"a [1].mp3"}}) {
        doubleClickRow(surface().lists.listView2, 0);
        EXPECT_EQ(listed(), step);
    }
}

// The tree follows to the folder that is listed, whatever the list is sorted by.
TEST_F(TheWindow, SteppingIntoAFolderOfASortedList) {
    writeFotos();
    start();
    const std::string path = newCatalogue();
    import("Fotos", discs.disc("dvd"));
    auto database = engine::OpenDatabase(path).value();
    ASSERT_TRUE(database.Execute("update datos set comentario='z' where carpeta=('atlas')"));
    database.Close();
    click("Fotos :");
    lists::ItemList& list = surface().lists.listView1;
    list.sort({.on = true, .key = 1, .descending = false});
    ASSERT_EQ(listed(), (Names{"viaje", "Lista.TXT", "atlas"}));
    doubleClickRow(list, 0);
    EXPECT_EQ(listed(), (Names{"2003", "mapa.txt"}));
    EXPECT_EQ(tree().selected(), node("Fotos :\\viaje"));
}

TEST_F(TheWindow, ThePointerTellsWhatCanBeStopped) {
    writeFotos();
    start();
    std::vector<int> shapes;
    const auto note = [&] {
        const QCursor* pointer = QGuiApplication::overrideCursor();
        shapes.push_back(pointer ? pointer->shape() : Qt::ArrowCursor);
    };
    dialogs.onChoose = note;
    newCatalogue();
    whenItYields(note);
    import("Fotos", discs.disc("dvd"));
    whenItYields(note);
    click("Fotos :");
    EXPECT_EQ(shapes, (std::vector<int>{Qt::ArrowCursor, Qt::ArrowCursor, Qt::BusyCursor, Qt::BusyCursor}));
    shapes.clear();
    whenItYields(note);
    choose("reciente");
    EXPECT_EQ(shapes, (std::vector<int>{Qt::WaitCursor}));
    click("Fotos :");
    clickRow(surface().lists.listView1, 0);
    shapes.clear();
    messages.onShow = [&](const auto&) { note(); };
    for (const char* entry : {"abrir", "Copiararchivos"}) choose(entry);
    EXPECT_EQ(shapes, (std::vector<int>{Qt::ArrowCursor, Qt::ArrowCursor, Qt::WaitCursor}))
        << "over both choosers, and a copy that ended";

    const std::string before = status();
    shapes.clear();
    {
        const frame::LongWork work(frame(), {"Trabajando ...", "Working ..."});
        note();
        EXPECT_EQ(status(), "Working ...");
        Painted painted(form.get());
        while (status() == "Working ...") platform::Waiting::giveSign(0.5);
        EXPECT_EQ(status(), "Working ... 50 %");
        EXPECT_TRUE(painted.isPainted);
    }
    note();
    EXPECT_EQ(shapes, (std::vector<int>{Qt::WaitCursor, Qt::ArrowCursor}));
    EXPECT_EQ(status(), before);
}

TEST_F(TheWindow, RefreshCountsWhatAnotherProgramHasAdded) {
    const std::string path = startWithFotos();
    test::addRows(path, {test::fileRow("Fotos :", "E:\\viaje", "c.jpg")});
    EXPECT_EQ(status(), "  Units: 1  Folders: 4  Files: 4");
    choose("actualizar1");
    EXPECT_EQ(status(), "  Units: 1  Folders: 4  Files: 5");
}

TEST_F(TheWindow, RowsThatCannotBeReadAreTold) {
    const test::CatalogueFixture catalogue;
    catalogue.add(std::vector(2000, test::folderRow("U :", "E:\\folder")));
    start(Language::English, catalogue.path);
    const std::string bytes = test::readFile(catalogue.path);
    test::writeFile(catalogue.path, bytes.substr(0, 16384) + std::string(bytes.size() - 16384, '\0'));
    click("U :");
    EXPECT_EQ(tree().nodes().count(), 1);
    EXPECT_EQ(listed(), Names{});
    EXPECT_TRUE(status().ends_with(": The catalogue is damaged; it can be repaired.")) << status();
}

TEST_F(TheWindow, ViewsFontsAndTexts) {
    start();
    newCatalogue();
    using View = controls::ListView::View;
    const auto view = [&] { return surface().lists.listView1.view(); };
    for (const View next : {View::LargeIcons, View::SmallIcons, View::List, View::Report, View::LargeIcons}) {
        press(frame::Toolbar::Views);
        EXPECT_TRUE(view() == next && surface().lists.listView2.view() == next);
        EXPECT_EQ(pressed(), std::vector<int>{});
    }
    EXPECT_TRUE(isChecked("Iconosgrandes") && !isChecked("Detalle"));
    control<QAction>("Toolbar1(11)(3)").trigger();
    EXPECT_TRUE(view() == View::List && isChecked("lista"));
    choose("reciente");  // opening puts the report back
    EXPECT_TRUE(view() == View::Report && isChecked("Detalle") && !isChecked("lista"));

    choose("Grande");
    for (const char* name : {"TreeView1", "ListView1", "ListView2", "ImageCombo1", "Text9"})
        EXPECT_EQ(control(name).font().pointSize(), 12) << name;
    EXPECT_TRUE(isChecked("Grande") && !isChecked("Pequeño"));
    EXPECT_FALSE(surface().lists.listView1.fullRowSelect()) << "as its entry shows";
    choose("filacompleta");
    EXPECT_TRUE(isChecked("filacompleta") && surface().lists.listView2.fullRowSelect());
    choose("botonessintexto");
    EXPECT_EQ(frame().toolbar.caption(frame::Toolbar::Exit), " ");
    choose("botonescontexto");
    EXPECT_EQ(frame().toolbar.caption(frame::Toolbar::Exit), "Exit");
    choose("español");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0], (test::RecordingMessages::Shown{
                                     "Changes will take place the next time you initiate this aplication.",
                                     "Languaje change", frame::MessageStyle::Information}));
    EXPECT_EQ(platform::GetSetting("idioma"), "Español");
    EXPECT_TRUE(isChecked("English") && !isChecked("español")) << "until the next start";
    for (const char* kept : {"si", "no"}) {
        choose("iniciomenu");
        EXPECT_EQ(platform::GetSetting("iniciorapido"), kept);
        EXPECT_EQ(isChecked("iniciomenu"), *kept == 's');
    }
    platform::SaveSetting("iniciorapido", "si");  // by the quick start, which then calls an entry
    form->abrir1();
    EXPECT_TRUE(isChecked("iniciomenu"));
}

TEST_F(TheWindow, TheDividerStaysWithinItsBounds) {
    start();
    newCatalogue();
    QWidget& divider = control("imgSplitter");
    const auto dragTo = [&](int x) {
        QTest::mousePress(&divider, Qt::LeftButton, {}, QPoint(1, 50));
        QTest::mouseMove(&divider, QPoint(x - divider.x(), 50));
        EXPECT_TRUE(control("picSplitter").isVisible());
        EXPECT_GE(control("picSplitter").x(), 33);
        QTest::mouseRelease(&divider, Qt::LeftButton, {}, QPoint(x - divider.x(), 50));
        EXPECT_TRUE(control("picSplitter").isHidden());
        EXPECT_EQ(control("ListView2").geometry(), control("ListView1").geometry());
        EXPECT_EQ(control("Picture2").geometry(), tree().geometry());
        return tree().width();
    };
    const int inner = control("TreeView1").parentWidget()->width();
    EXPECT_NEAR(dragTo(400), 400, 2);
    EXPECT_EQ(dragTo(5), 100);
    EXPECT_EQ(dragTo(inner - 5), inner - 100);
    QTest::keyClick(&divider, Qt::Key_Left);
    EXPECT_NEAR(tree().width(), inner - 110, 2);
    const QSize before = form->size();
    form->resize(480, 320);
    EXPECT_GT(tree().height(), 0);
    EXPECT_GT(control("ListView1").width(), 50);
    form->resize(before);
    EXPECT_NEAR(tree().width(), inner - 110, 2) << "it goes back with the room";
}

}  // namespace
