// The window without a mouse: every action is in reach of the keys.

#include <QMenu>

#include "support/main_window.h"

namespace {

using test::Names;

class Keyboard : public test::MainWindow {
  protected:
    static void key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    // Whether the menu key, or what stands for it, opens this menu; closes it again.
    static bool menuKeyOpens(QMenu& menu) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10, Qt::ShiftModifier);
        const bool open = menu.isVisible();
        menu.close();
        return open;
    }
    [[nodiscard]] const std::string& clicked() { return surface().clic.nodoactual; }
    bool isIn(const char* pane) { return control(pane).isAncestorOf(QApplication::focusWidget()); }
};

TEST_F(Keyboard, FromTheTreeToANoteAndToTheEndOfTheUnit) {
    startWithFotos();
    choose("explorar");
    ASSERT_EQ(QApplication::focusWidget(), &tree());
    EXPECT_TRUE(menuKeyOpens(*frame().menus.popup())) << "the node that has the focus is selected first";
    EXPECT_EQ(listed(), (Names{"atlas", "viaje", "Lista.TXT"}));
    key(Qt::Key_F2);
    ASSERT_NE(QApplication::focusWidget(), &tree()) << "the label is edited";
    key(Qt::Key_Escape);

    tree().setFocus();
    key(Qt::Key_Tab);
    ASSERT_TRUE(isIn("ListView1"));
    key(Qt::Key_Home);
    EXPECT_TRUE(isOn("Copiararchivos"));
    EXPECT_FALSE(menuKeyOpens(*frame().menus.popup2())) << "a folder has no menu";
    EXPECT_EQ(clicked(), "atlas");
    key(Qt::Key_End);
    EXPECT_TRUE(menuKeyOpens(*frame().menus.popup2()));
    choose("insertarcomentario");
    QTest::keyClicks(&control("Text10"), "mine");
    QTest::keyClick(&control("Command6"), Qt::Key_Space);
    EXPECT_EQ(rowCount(folder / "test.zrq", "comentario=('mine') and archivo=('Lista.TXT')"), 1);

    tree().setFocus();
    messages.answers = {true};
    key(Qt::Key_Delete);
    EXPECT_EQ(roots(), Names{});
    EXPECT_EQ(rowCount(folder / "test.zrq"), 0);
}

// What the menu's entries work on is the row that the menu was opened for, whatever was clicked in between.
TEST_F(Keyboard, ARowIsClickedBeforeItsMenuOpens) {
    startWithFotos();
    choose("explorar");
    click("Fotos :");
    click("Fotos :\\viaje");
    lists::ItemList& list = surface().lists.listView1;
    list.setFocus();
    key(Qt::Key_End);
    EXPECT_EQ(clicked(), "mapa.txt");
    choose("buscar");
    search("b.jpg");
    surface().lists.listView2.setFocus();
    key(Qt::Key_Space);
    EXPECT_EQ(clicked(), "b.jpg") << "selected without a move";
    choose("explorar");
    list.setFocus();
    EXPECT_TRUE(menuKeyOpens(*frame().menus.popup2()));
    EXPECT_EQ(clicked(), "mapa.txt");

    QWidget* viewport = list.findChild<QAbstractItemView*>("report")->viewport();
    QTest::mouseClick(viewport, Qt::RightButton, {}, viewport->rect().bottomRight() - QPoint(5, 5));
    EXPECT_FALSE(frame().menus.popup2()->isVisible()) << "no row is selected";
}

TEST_F(Keyboard, TabGoesRoundTheSearchAndPassesWhatItCovers) {
    startWithFotos();
    choose("buscar");
    search("*");
    EXPECT_EQ(focused(), "Combo2");
    Names stops = tabStops();
    for (const char* covered : {"TreeView1", "ListView1"})
        EXPECT_EQ(std::ranges::count(stops, covered), 0) << covered;
    stops.resize(4);
    EXPECT_EQ(stops, (Names{"Label5", "TabStrip1", "Check1(0)", "ListView2"}));

    choose("explorar");
    key(Qt::Key_Tab);
    EXPECT_TRUE(isIn("ListView1"));
    key(Qt::Key_F10);
    EXPECT_EQ(frame().menus.activeAction(), frame().menus.action("archivos"));
    frame().menus.action("archivos")->menu()->close();
}

}  // namespace
