#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include "platform/controls/divider.h"
#include "platform/controls/image_combo.h"
#include "platform/controls/key_filter.h"
#include "platform/controls/link_label.h"
#include "platform/controls/pictures.h"
#include "platform/controls/step_buttons.h"
#include "platform/controls/twips.h"

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

TEST(Pictures, NoNumberIsBlankWithOrWithoutATheme) {
    const auto drawn = [] {
        int count = 0;
        for (int number = 1; number <= pictureCount; ++number) count += isBlank(picture(number)) ? 0 : 1;
        return count;
    };
    EXPECT_EQ(drawn(), pictureCount);
    installIconTheme();
    EXPECT_EQ(drawn(), pictureCount);
    EXPECT_TRUE(picture(0).isNull());
    EXPECT_TRUE(picture(18).isNull());
    EXPECT_FALSE(isBlank(actionIcon("document-open")));
    EXPECT_FALSE(isBlank(actionIcon("no-such-icon")));
}

TEST(Combo, ItemsKeepNumberKeyTextAndPicture) {
    ImageCombo combo(ImageCombo::Typing::Yes);
    QSignalSpy chosen(&combo, &ImageCombo::clicked);
    EXPECT_TRUE(combo.addItem(1, "Uno :", "Uno :", 7));
    EXPECT_EQ(combo.selectedItem(), 0) << "nothing is selected until somebody does";
    EXPECT_EQ(combo.text(), "");
    EXPECT_TRUE(combo.addItem(2, "", "Uno :\\fotos", 2));
    EXPECT_FALSE(combo.addItem(4, "", "gap", 2));
    combo.setSelected(2);
    EXPECT_EQ(combo.text(), "Uno :\\fotos");

    EXPECT_TRUE(combo.addItem(1, "Cero :", "Cero :", 9));
    EXPECT_EQ(combo.selectedItem(), 3) << "the item moved up";
    EXPECT_EQ(combo.itemKey(2), "Uno :");
    EXPECT_EQ(combo.itemPicture(2), 7);
    EXPECT_TRUE(combo.removeItem(3));
    EXPECT_EQ(combo.selectedItem(), 0) << "no neighbour takes its place";
    EXPECT_FALSE(combo.removeItem(3));
    combo.setSelected(1);
    combo.setItemText(1, "Nueva :");
    EXPECT_EQ(combo.text(), "Nueva :");
    EXPECT_EQ(chosen.count(), 0) << "only the user clicks";
    combo.clear();
    EXPECT_EQ(combo.text(), "");
}

TEST(Combo, TellsTheUsersChoiceAndTyping) {
    ImageCombo combo(ImageCombo::Typing::Yes);
    for (int number = 1; number <= 3; ++number) combo.addItem(number, {}, QString("item %1").arg(number), 1);
    combo.setSelected(1);
    combo.show();
    QSignalSpy chosen(&combo, &ImageCombo::clicked);
    QSignalSpy typed(&combo, &ImageCombo::textTyped);
    QTest::keyClick(&combo, Qt::Key_Down);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0].at(0).toInt(), 2);
    combo.setText("set");
    EXPECT_EQ(typed.count(), 0);
    QTest::keyClicks(combo.lineEdit(), "x");
    EXPECT_EQ(typed.count(), 1);
    EXPECT_EQ(combo.text(), "setx");
    combo.setSelected(combo.selectedItem());
    EXPECT_EQ(combo.text(), "item 2") << "selecting shows the item over what was typed";
}

TEST(Filter, HoldsBackCharactersAndNothingElse) {
    QLineEdit field;
    int entered = 0;
    KeyFilter::install(
        &field, [](char32_t c) { return c == U'ñ' || (c >= U'a' && c <= U'd'); }, [&] { ++entered; });
    field.show();
    QTest::keyClicks(&field, "azb'*c");
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_Ntilde, QString::fromUtf8("ñ"), Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString::fromUtf8("😀"), Qt::NoModifier);
    EXPECT_EQ(field.text(), QString::fromUtf8("abcñ"));
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
    QGuiApplication::clipboard()->setText("zz");
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.text(), "zzbc") << "what is pasted passes";
}

TEST(Filter, OfAnEditableComboGuardsItsField) {
    ImageCombo combo(ImageCombo::Typing::Yes);
    int entered = 0;
    KeyFilter::install(
        &combo, [](char32_t c) { return c != U'*'; }, [&] { ++entered; });
    combo.show();
    combo.lineEdit()->setFocus();
    QApplication::setActiveWindow(&combo);
    QWidget* typedInto = QApplication::focusWidget();  // where the window system sends the keys
    ASSERT_TRUE(typedInto);
    QTest::keyClicks(typedInto, "a*b");
    QTest::keyClick(typedInto, Qt::Key_Return);
    QTest::keyClicks(combo.lineEdit(), "c*");
    EXPECT_EQ(combo.text(), "abc");
    EXPECT_EQ(entered, 1);
}

TEST(Label, IsAButtonToMouseKeyboardAndScreenReader) {
    ClickableLabel label("Buscar");
    label.show();
    QSignalSpy clicks(&label, &ClickableLabel::clicked);
    QTest::mouseClick(&label, Qt::LeftButton);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) QTest::keyClick(&label, key);
    EXPECT_EQ(clicks.count(), 4);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->role(), QAccessible::Button);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), "Buscar");
    label.setEnabled(false);
    QTest::mouseClick(&label, Qt::LeftButton);
    EXPECT_EQ(clicks.count(), 4);
}

TEST(Steps, ByButtonAndByArrowKey) {
    UpDown steps;
    steps.resize(steps.sizeHint());
    steps.show();
    QSignalSpy up(&steps, &UpDown::up);
    QSignalSpy down(&steps, &UpDown::down);
    QTest::mouseClick(steps.findChild<QToolButton*>("stepUp"), Qt::LeftButton);
    QTest::keyClick(&steps, Qt::Key_Up);
    QTest::mouseClick(steps.findChild<QToolButton*>("stepDown"), Qt::LeftButton);
    QTest::keyClick(&steps, Qt::Key_Down);
    EXPECT_EQ(up.count(), 2);
    EXPECT_EQ(down.count(), 2);
}

TEST(DividerTest, TheBarKeepsWithinTheBoundsAndTheHandleStays) {
    QWidget window;
    window.resize(600, 300);
    Divider divider(&window, [&] { return Divider::Bounds{50, window.width() - 50}; });
    divider.setGeometry(200, 20, 6, 250);
    window.show();
    auto* bar = window.findChild<QWidget*>("picSplitter");
    QSignalSpy moved(&divider, &Divider::moved);
    QSignalSpy released(&divider, &Divider::released);

    QTest::mousePress(&divider, Qt::LeftButton, {}, {2, 100});
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->geometry(), divider.geometry());
    QTest::mouseMove(&divider, {102, 100});
    QTest::mouseMove(&divider, {-900, 100});
    EXPECT_EQ(bar->x(), 50);
    EXPECT_EQ(divider.x(), 200);
    QTest::mouseMove(&divider, {900, 100});
    QTest::mouseRelease(&divider, Qt::LeftButton, {}, {900, 100});
    EXPECT_FALSE(bar->isVisible());
    ASSERT_GE(moved.count(), 3);
    EXPECT_EQ(moved[0].at(0).toInt(), 300);
    ASSERT_EQ(released.count(), 1);
    EXPECT_EQ(released[0].at(0).toInt(), 550);

    QTest::keyClick(&divider, Qt::Key_Left);
    EXPECT_EQ(released[1].at(0).toInt(), 190);
}

}  // namespace
}  // namespace controls
