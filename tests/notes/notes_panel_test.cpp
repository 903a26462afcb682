#include "notes/notes_panel.h"

#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

#include "platform/controls/twips.h"
#include "support/browse_window.h"

namespace {

using controls::pixels;
using core::Language;

constexpr QRect listArea(300, 80, 690, 400);

// The window with one file row clicked, and the panel over the lists.
class Panel : public testing::TestWithParam<Language>, protected notes::NotesHost {
  protected:
    Panel() {
        window.discs.write("disk", "docs/a.txt", "");
        window.discs.write("disk", "docs/sub/b.txt", "");
        window.scan("Docs", window.discs.disc("disk") + "/docs");
        window.browse("Docs");
        click("a.txt");
        window.window.show();
    }

    QRect listArea() const override { return ::listArea; }
    void setListsPushedDown(int pushed) override { pushedDown = pushed; }

    void click(const std::string& name) {
        browse::ItemList& list = window.list1;
        browse::ClickedRow& clic = window.surface.clic;
        for (int i = 0; i < list.count(); ++i) {
            if (list.text(i).toStdString() != name) continue;
            clic.indicefila = i;
            clic.nodoactual = name;
            clic.tipofilaelegida = list.subItem(i, 2).toStdString();
            clic.discofila1 = list.subItem(i, 8).toStdString();
            clic.rutafila1 = list.subItem(i, 9).toStdString();
        }
    }

    // Lets the slides run to their ends without waiting.
    int tickToTheEnd() {
        int ticks = 0;
        for (; (timer1->isActive() || timer2->isActive()) && ticks < 1000; ++ticks) {
            if (timer1->isActive()) panel.tickTimer1();
            if (timer2->isActive()) panel.tickTimer2();
        }
        return ticks;
    }
    void write(const QString& note) {
        panel.insertarcomentario();
        tickToTheEnd();
        text->setPlainText(note);
        accept->click();
        tickToTheEnd();
    }
    QString read() {
        panel.vercomentarios();
        tickToTheEnd();
        return text->toPlainText();
    }

    test::BrowseWindow window{GetParam()};
    int pushedDown = -1;
    notes::NotesPanel panel{window.surface, *this, &window.window};
    QPlainTextEdit* text = panel.findChild<QPlainTextEdit*>("Text10");
    QPushButton* close = panel.findChild<QPushButton*>("Command4");
    QPushButton* accept = panel.findChild<QPushButton*>("Command6");
    QTimer* timer1 = panel.findChild<QTimer*>("Timer1");
    QTimer* timer2 = panel.findChild<QTimer*>("Timer2");
};

TEST_P(Panel, SlidesBetweenItsStops) {
    EXPECT_EQ(timer1->interval(), 50);
    EXPECT_EQ(timer2->interval(), 50);
    EXPECT_FALSE(panel.isVisible());
    text->setPlainText("old");
    panel.insertarcomentario();
    EXPECT_EQ(text->toPlainText(), "");
    EXPECT_EQ(window.window.focusWidget(), text);
    EXPECT_EQ(panel.topInTwips(), -400);

    EXPECT_EQ(tickToTheEnd(), 17);  // sixteen steps, and one that finds the stop
    EXPECT_EQ(panel.topInTwips(), 1200);
    EXPECT_EQ(pushedDown, pixels(1600));
    EXPECT_EQ(panel.geometry(), QRect(301, 80, 690, pixels(1600)));
    const int half = panel.width() / 2;
    EXPECT_EQ(close->geometry(), QRect(0, 0, half, close->height()));
    EXPECT_EQ(accept->geometry(), QRect(half, 0, half, close->height()));
    EXPECT_EQ(text->geometry().top(), close->height());
    EXPECT_EQ(text->geometry().bottom() + 1, pixels(1580));

    close->click();
    EXPECT_EQ(tickToTheEnd(), 17);
    EXPECT_EQ(panel.topInTwips(), -400);
    EXPECT_EQ(pushedDown, 0);
    EXPECT_TRUE(panel.isVisible());  // out of sight above the lists
    EXPECT_FALSE(panel.isAncestorOf(window.window.focusWidget()));
    EXPECT_LE(panel.geometry().bottom(), ::listArea.top());
}

TEST_P(Panel, SlidesAgainstEachOtherComeToAnEnd) {
    panel.insertarcomentario();
    for (int i = 0; i < 8; ++i) panel.tickTimer1();
    close->click();
    EXPECT_TRUE(timer1->isActive() && timer2->isActive());
    EXPECT_LT(tickToTheEnd(), 100);
    EXPECT_EQ(panel.topInTwips(), -400);

    panel.insertarcomentario();
    tickToTheEnd();
    panel.closeAtOnce();
    EXPECT_EQ(pushedDown, 0);
    EXPECT_FALSE(panel.isVisible());
    panel.insertarcomentario();
    EXPECT_EQ(panel.topInTwips(), -400);
}

TEST_P(Panel, ANoteIsStoredShownAndRemoved) {
    write(QString::fromUtf8("línea 1\nlínea\u00a02"));
    EXPECT_TRUE(window.messages.shown.empty());
    EXPECT_EQ(panel.topInTwips(), -400);
    EXPECT_EQ(window.list1.subItem(window.surface.clic.indicefila, 1),
              QString::fromUtf8("línea 1\nlínea\u00a02"));
    EXPECT_EQ(read(), QString::fromUtf8("línea 1\nlínea 2"));
    EXPECT_TRUE(accept->isHidden());
    EXPECT_EQ(close->width(), panel.width());

    write("");
    EXPECT_FALSE(accept->isHidden());
    EXPECT_EQ(read(), GetParam() == Language::Spanish
                          ? QString::fromUtf8("No existen notas en este item.")
                          : QString::fromUtf8("There aren´t notes in this item."));
    window.browse("Docs");
    EXPECT_EQ(window.list1.subItem(1, 1), "");  // the sentence was not written
}

TEST_P(Panel, AnApostropheIsRefusedWithAMessage) {
    write("before");
    write("it's");
    ASSERT_EQ(window.messages.shown.size(), 1u);
    EXPECT_EQ(window.messages.shown[0].text, GetParam() == Language::Spanish
                                                 ? "Ha introducido un caracter no permitido."
                                                 : "Yo have inserted a restricted character.");
    EXPECT_EQ(window.messages.shown[0].title, "zarquelin");
    EXPECT_EQ(text->toPlainText(), "it's");
    EXPECT_EQ(panel.topInTwips(), -400);
    EXPECT_EQ(read(), "before");
}

TEST_P(Panel, FoldersAndLostRowsAreLeftAlone) {
    click("sub");
    panel.vercomentarios();
    EXPECT_FALSE(timer1->isActive());
    write("of a folder");  // stored in English only
    window.browse("Docs");
    EXPECT_EQ(window.list1.subItem(0, 1), GetParam() == Language::Spanish ? "" : "of a folder");

    window.surface.clic.indicefila = -1;
    panel.vercomentarios();
    EXPECT_FALSE(timer1->isActive());
    click("a.txt");
    window.catalogue.setPath("/nonexistent/catalogue.zrq");
    write("it's");
    EXPECT_TRUE(window.messages.shown.empty());
}

TEST_P(Panel, CaptionsFitAtEveryFontSize) {
    for (const int points : {8, 10, 12}) {
        panel.applyFontSize(points);
        panel.insertarcomentario();
        for (const QPushButton* button : {close, accept}) {
            EXPECT_GE(button->height(), button->fontMetrics().height() + 2) << points;
            EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()) + 8) << points;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Panel, testing::Values(Language::Spanish, Language::English));

}  // namespace
