#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>
#include <QTextOption>
#include <QWheelEvent>

#include "controls/image_combo.h"
#include "controls/key_filter.h"
#include "controls/pictures.h"
#include "controls/tab_strip.h"
#include "controls/tool_tip.h"
#include "controls/twips.h"

namespace controls {
namespace {

static_assert(pixels(1200) == 80 && pixels(500) == 33 && pixels(-90) == -6 && twips(80) == 1200);

bool isBlank(const QIcon& icon) {
    const QImage image = icon.pixmap(32, 32).toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() > 0) return false;
    return true;
}

TEST(Pictures, NoActionIsBlankWithOrWithoutATheme) {
    for (int round = 0; round < 2; ++round, installIconTheme())
        for (const char* name : {"document-open", "no-such-icon"}) EXPECT_FALSE(isBlank(actionIcon(name)));
    for (const int none : {0, 18}) EXPECT_TRUE(picture(none).isNull());
}

TEST(Combo, ItemsKeepNumberTextAndPicture) {
    ImageCombo combo(ImageCombo::Typing::Yes);
    QSignalSpy chosen(&combo, &ImageCombo::clicked);
    EXPECT_TRUE(combo.addItem(1, "Uno :", 7));
    EXPECT_EQ(combo.selectedItem(), 0) << "nothing is selected until somebody does";
    EXPECT_TRUE(combo.addItem(2, "Uno :\\fotos", 2));
    EXPECT_FALSE(combo.addItem(4, "gap", 2));
    combo.setSelected(2);
    EXPECT_EQ(combo.text(), "Uno :\\fotos");

    EXPECT_TRUE(combo.addItem(1, "Cero :", 9));
    EXPECT_EQ(combo.selectedItem(), 3) << "the item moved up";
    EXPECT_EQ(combo.itemPicture(2), 7);
    EXPECT_TRUE(combo.removeItem(3));
    EXPECT_EQ(combo.selectedItem(), 0) << "no neighbour takes its place";
    EXPECT_FALSE(combo.removeItem(3));
    combo.setSelected(1);
    combo.setItemText(1, "Nueva :");
    EXPECT_EQ(combo.text(), "Nueva :");
    EXPECT_EQ(chosen.count(), 0) << "only the user clicks";
}

TEST(Combo, ChangesByNothingButAChoiceInItsList) {
    for (const auto typing : {ImageCombo::Typing::No, ImageCombo::Typing::Yes}) {
        ImageCombo combo(typing);
        for (int number = 1; number <= 3; ++number) combo.addItem(number, QString::number(number), 1);
        combo.setSelected(2);
        combo.show();
        QSignalSpy chosen(&combo, &ImageCombo::clicked);
        QWheelEvent wheel({5, 5}, combo.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&combo, &wheel);
        EXPECT_FALSE(wheel.isAccepted()) << "it may scroll what the combo stands on";
        for (const auto key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown}) {
            QTest::keyClick(&combo, key);
            EXPECT_TRUE(combo.view()->isVisible());
            QTest::keyClick(combo.view(), Qt::Key_Down);
            QTest::keyClick(combo.view(), Qt::Key_Escape);
        }
        EXPECT_EQ(combo.selectedItem(), 2);
        EXPECT_EQ(chosen.count(), 0);
        QTest::keyClick(&combo, Qt::Key_Down);
        QTest::keyClick(combo.view(), Qt::Key_Down);
        QTest::keyClick(combo.view(), Qt::Key_Return);
        EXPECT_EQ(combo.selectedItem(), 3);
        EXPECT_EQ(chosen.count(), 1);
    }
}

TEST(Filter, HoldsBackCharactersAndNothingElse) {
    QLineEdit field;
    int entered = 0;
    KeyFilter::install(
        &field, [](char32_t c) { return c == U'ñ' || (c >= U'a' && c <= U'd'); }, [&] { ++entered; });
    field.show();
    QTest::keyClicks(&field, "azb'*c");
    for (const char* typed : {"ñ", "😀"})
        QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString::fromUtf8(typed), Qt::NoModifier);
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("é"));
    QCoreApplication::sendEvent(&field, &composed);
    EXPECT_EQ(field.text(), QString::fromUtf8("abcñ"));

    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(field.text(), "bc");
    QTest::keyClick(&field, Qt::Key_Enter);
    EXPECT_EQ(entered, 1);
}

TEST(ToolTip, ShowsTheCharactersOfANameAndNoOthers) {
    for (const QString name : {"Rock & Roll", "<b>bold</b> & more", "a &amp; b"}) {
        QTextDocument shown;
        ASSERT_TRUE(Qt::mightBeRichText(toolTipOf(name)));
        shown.setHtml(toolTipOf(name));
        EXPECT_EQ(shown.toPlainText(), name);
    }
    EXPECT_EQ(toolTipOf({}), "");
    QTextDocument wrapped;
    QTextOption atBlanks;
    atBlanks.setWrapMode(QTextOption::WordWrap);  // as a tool tip has it
    wrapped.setDefaultTextOption(atBlanks);
    wrapped.setHtml(toolTipOf("C:" + QString("\\e\u0301_long_name").repeated(40)));
    wrapped.setTextWidth(600);
    EXPECT_LE(wrapped.idealWidth(), 600) << "a path without a blank is broken too";
}

TEST(Tabs, FitTheirLettersWhenTheirPanelsFontChanges) {
    QWidget panel;
    TabStrip strip(&panel);
    strip.addTab("Type");
    strip.resize(60, 30);
    panel.setFont(QFont("", 40));
    EXPECT_LT(strip.font().pointSize(), 40);
    panel.setFont(QFont("", 7));
    EXPECT_EQ(strip.font().pointSize(), 7);
}

}  // namespace
}  // namespace controls
