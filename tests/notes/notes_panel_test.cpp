#include "notes/notes_panel.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

#include "controls/twips.h"
#include "support/catalogue_fixture.h"
#include "support/main_window.h"

namespace {

using controls::pixels;
using core::Language;

// The window with one file row clicked.
class Notes : public test::BilingualWindow {
  protected:
    void SetUp() override {
        for (const char* name : {"sub/0.txt", "sub/a.txt"}) discs.write("dvd", name, "");
        discs.write("dvd", "a.txt", "");
        start(GetParam());
        newCatalogue();
        import("Docs", discs.disc("dvd"));
        click("Docs :");
        clickRow(list(), 1);
    }
    lists::ItemList& list() { return surface().lists.listView1; }
    // Lets the slides run to their ends without waiting.
    int tickToTheEnd() {
        int ticks = 0;
        for (; (timer("Timer1").isActive() || timer("Timer2").isActive()) && ticks < 1000; ++ticks) {
            if (timer("Timer1").isActive()) panel().tickTimer1();
            if (timer("Timer2").isActive()) panel().tickTimer2();
        }
        return ticks;
    }
    void write(const QString& note) {
        panel().insertarcomentario();
        tickToTheEnd();
        text().setPlainText(note);
        accept().click();
        tickToTheEnd();
    }
    std::string read() {
        panel().vercomentarios();
        tickToTheEnd();
        return text().toPlainText().toStdString();
    }

    notes::NotesPanel& panel() { return control<notes::NotesPanel>("Picture12"); }
    QPlainTextEdit& text() { return control<QPlainTextEdit>("Text10"); }
    QPushButton& close() { return control<QPushButton>("Command4"); }
    QPushButton& accept() { return control<QPushButton>("Command6"); }
    const QTimer& timer(const char* name) { return *form->findChild<QTimer*>(name); }
};

TEST_P(Notes, SlidesBetweenItsStops) {
    const QRect uncovered = list().geometry();
    text().setPlainText("old");
    panel().insertarcomentario();
    EXPECT_EQ(text().toPlainText(), "");
    EXPECT_EQ(focused(), "Text10");
    EXPECT_EQ(panel().topInTwips(), -400);

    EXPECT_EQ(tickToTheEnd(), 17);  // sixteen steps, and one that finds the stop
    EXPECT_EQ(panel().topInTwips(), 1200);
    EXPECT_EQ(list().geometry(), uncovered.adjusted(0, pixels(1600), 0, 0));
    EXPECT_EQ(panel().size(), QSize(uncovered.width(), pixels(1600)));
    EXPECT_EQ(accept().geometry().topLeft(), close().geometry().topRight() + QPoint(1, 0));
    EXPECT_EQ(text().geometry(),
              QRect(0, close().height(), panel().width(), pixels(1580) - close().height()));

    QTest::keyClick(&close(), Qt::Key_Return);
    EXPECT_EQ(tickToTheEnd(), 17);
    EXPECT_EQ(panel().topInTwips(), -400);
    EXPECT_EQ(list().geometry(), uncovered);
    EXPECT_TRUE(panel().isVisible());  // out of sight above the lists
    EXPECT_TRUE(list().isAncestorOf(QApplication::focusWidget()));
}

TEST_P(Notes, SlidesAgainstEachOtherComeToAnEnd) {
    panel().insertarcomentario();
    for (int i = 0; i < 8; ++i) panel().tickTimer1();
    close().click();
    EXPECT_TRUE(timer("Timer1").isActive() && timer("Timer2").isActive());
    EXPECT_LT(tickToTheEnd(), 100);
    EXPECT_EQ(panel().topInTwips(), -400);

    const QRect uncovered = list().geometry();
    panel().insertarcomentario();
    tickToTheEnd();
    panel().closeAtOnce();
    EXPECT_EQ(list().geometry(), uncovered) << "no gap is left";
    EXPECT_FALSE(panel().isVisible());
}

TEST_P(Notes, ANoteIsStoredShownAndRemoved) {
    const QString note = QString::fromUtf8("línea 1\nlínea\u00a02");
    write(note);
    EXPECT_EQ(list().subItem(1, 1), note);
    EXPECT_EQ(read(), "línea 1\nlínea 2");
    EXPECT_TRUE(accept().isHidden());
    EXPECT_EQ(close().width(), panel().width());

    write("");
    EXPECT_FALSE(accept().isHidden());
    EXPECT_EQ(read(), in("No existen notas en este item.", "There aren´t notes in this item."));
    click("Docs :");
    EXPECT_EQ(list().subItem(1, 1), "") << "the sentence was not written";
}

TEST_P(Notes, ANoteIsShownInEveryRowThatGotItAndInNoNamesake) {
    const auto file = [](const char* name) { return test::fileRow("Docs :", "E:\\sub", name); };
    test::addRows(frame().catalogue.path(), {file("A.TXT"), file("sub")});
    const auto notes = [](const lists::ItemList& shown) {
        QString all;
        for (int row = 0; row < shown.count(); ++row)
            all += shown.text(row) + '=' + shown.subItem(row, 1) + ' ';
        return all.toStdString();
    };
    lists::ItemList& results = surface().lists.listView2;
    choose("buscar");
    search("a.txt");
    choose("explorar");
    click("Docs :\\sub");
    clickRow(list(), 1);
    write("n");
    EXPECT_EQ(notes(list()), "0.txt= a.txt=n A.TXT=n sub= ");
    EXPECT_EQ(notes(results), "a.txt=n a.txt= A.TXT=n ") << "one lies elsewhere";
    clickRow(list(), 3);
    write("all");  // it bears the folder's name
    EXPECT_EQ(notes(list()), "0.txt=all a.txt=all A.TXT=all sub=all ");
    choose("buscar");
    search("sub");
    clickRow(results, 1);
    write("file");
    EXPECT_EQ(notes(results), "sub=all sub=file ") << "and not in the folder's";
}

TEST_P(Notes, AnApostropheIsRefusedWithAMessage) {
    write("before");
    write("it's");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text.toStdString(),
              in("Ha introducido un caracter no permitido.", "Yo have inserted a restricted character."));
    EXPECT_EQ(text().toPlainText(), "it's");
    EXPECT_EQ(panel().topInTwips(), -400);
    EXPECT_EQ(read(), "before");
}

TEST_P(Notes, FoldersAndLostRowsAreLeftAlone) {
    clickRow(list(), 0);
    panel().vercomentarios();
    EXPECT_FALSE(timer("Timer1").isActive());
    clickRow(list(), 1);
    EXPECT_TRUE(engine::OpenDatabase(frame().catalogue.path())->Execute("delete * from datos"));
    write("of a row that another program has deleted");
    EXPECT_EQ(status(), in("  La nota no se ha guardado: no se encuentra ese elemento en el catálogo.",
                           "  The note was not stored: that item is not found in the catalogue."));
    frame().catalogue.setPath("/nonexistent/catalogue.zrq");
    panel().vercomentarios();
    EXPECT_FALSE(timer("Timer1").isActive());
    write("it's");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_P(Notes, CaptionsFitAtEveryFontSize) {
    for (const int points : {8, 10, 12}) {
        panel().applyFontSize(points);
        panel().insertarcomentario();
        for (const QPushButton* button : {&close(), &accept()}) {
            EXPECT_GE(button->height(), button->fontMetrics().height() + 2) << points;
            EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()) + 8) << points;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, Notes, testing::Values(Language::Spanish, Language::English));

}  // namespace
