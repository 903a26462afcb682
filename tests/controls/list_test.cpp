#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

#include "controls/list_view.h"
#include "controls/shown_text.h"
#include "controls/tool_tip.h"

namespace controls {
namespace {

class ListTest : public testing::Test {
  protected:
    ListTest() {
        for (int row = 0; row < 6; ++row)
            model.appendRow(
                {new QStandardItem(QString(QChar('a' + row)) + "-name"), new QStandardItem("type")});
        list.setModel(&model);
        list.resize(500, 300);
        list.setColumnWidth(1, 150);
        list.setColumnWidth(2, 150);
        list.show();
    }

    [[nodiscard]] QPoint at(int row, int column = 1) const {
        return list.shownView()->visualRect(model.index(row, column - 1)).center();
    }
    void click(int row, int column = 1, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(list.shownView()->viewport(), button, keys, at(row, column));
    }
    [[nodiscard]] std::vector<int> selection() const {
        std::vector<int> rows;
        for (int row = 0; row < model.rowCount(); ++row)
            if (list.isSelected(row)) rows.push_back(row);
        return rows;
    }

    QStandardItemModel model;
    ListView list;
};

using Rows = std::vector<int>;

TEST_F(ListTest, TheSelectionIsOneInAllViews) {
    QSignalSpy clicks(&list, &ListView::rowClicked);
    for (const auto view : {ListView::View::Report, ListView::View::List, ListView::View::SmallIcons,
                            ListView::View::LargeIcons}) {
        list.setView(view);
        QCoreApplication::processEvents();
        click(1);
        click(3, 1, Qt::LeftButton, Qt::ControlModifier);
        EXPECT_EQ(selection(), (Rows{1, 3}));
        EXPECT_EQ(list.currentRow(), 3);
    }
    EXPECT_EQ(clicks.count(), 8);
    list.setView(ListView::View::Report);
    EXPECT_EQ(selection(), (Rows{1, 3}));
}

TEST_F(ListTest, KeysMoveClickAndActivate) {
    list.setFocus();
    click(0);
    QSignalSpy clicks(&list, &ListView::rowClicked);
    QSignalSpy activations(&list, &ListView::rowActivated);
    for (const auto key : {Qt::Key_Down, Qt::Key_Return}) QTest::keyClick(list.shownView(), key);
    ASSERT_EQ(clicks.count(), 2) << "as a double click";
    for (const auto& arguments : clicks) EXPECT_EQ(arguments.at(0).toInt(), 1);
    ASSERT_EQ(activations.count(), 1);
    EXPECT_EQ(activations[0].at(0).toInt(), 1);
}

TEST_F(ListTest, WithoutFullRowsOnlyTheFirstColumnReacts) {
    click(2, 2);
    EXPECT_EQ(selection(), Rows{2}) << "full rows are how it begins";
    list.setFullRowSelect(false);
    QSignalSpy clicks(&list, &ListView::rowClicked);
    QSignalSpy activations(&list, &ListView::rowActivated);
    click(4, 2);
    QTest::mouseDClick(list.shownView()->viewport(), Qt::LeftButton, {}, at(4, 2));
    EXPECT_EQ(selection(), Rows{});
    EXPECT_EQ(clicks.count() + activations.count(), 0);
    click(4, 1);
    EXPECT_EQ(selection(), Rows{4});

    // The highlight stops where the first column ends.
    const auto colourAt = [&](int column) {
        const QRect cell = list.shownView()->visualRect(model.index(4, column - 1));
        const QImage image = list.shownView()->viewport()->grab().toImage();
        return image.pixelColor(cell.right() - 4, cell.center().y());
    };
    list.activateWindow();
    const QColor first = colourAt(1);
    EXPECT_NE(first, colourAt(2));
    list.setFullRowSelect(true);
    EXPECT_EQ(colourAt(1), colourAt(2));
}

TEST_F(ListTest, TheMouseIsToldAfterTheSelection) {
    std::vector<std::pair<Qt::MouseButton, Rows>> pressed;
    QObject::connect(&list, &ListView::mousePressed, &list,
                     [&](Qt::MouseButton button) { pressed.emplace_back(button, selection()); });
    QSignalSpy releases(&list, &ListView::mouseReleased);
    click(2, 1, Qt::RightButton);
    ASSERT_EQ(pressed.size(), 1U);
    EXPECT_EQ(pressed[0], std::pair(Qt::RightButton, Rows{2}));
    ASSERT_EQ(releases.count(), 1);
    EXPECT_EQ(releases[0].at(1).toPoint(), list.shownView()->viewport()->mapToGlobal(at(2)));
}

// Of rows of one height, the first one decides.
TEST_F(ListTest, ANameStaysOnItsLineWhateverItHolds) {
    const QString names[]{QStringLiteral("a\nb\rc\u2028d"), QStringLiteral("x").repeated(5'000'000)};
    const int before = list.shownView()->visualRect(model.index(0, 0)).height();
    for (const QString& name : names) {
        model.item(0)->setText(name);
        list.setModel(nullptr);
        list.setModel(&model);
        QCoreApplication::processEvents();
        EXPECT_EQ(list.shownView()->visualRect(model.index(0, 0)).height(), before);
    }
    EXPECT_EQ(onOneLine("a\nb\u202Etxt.exe"), "a\u21B5b\uFFFDtxt.exe");
    EXPECT_FALSE(shortened(QStringLiteral("x\n").repeated(1000)).contains('\n')) << "higher than any screen";
    EXPECT_LT(onOneLine(names[1]).size() + toolTipOf(names[1]).size(), 10'000);
}

TEST_F(ListTest, ALargerFontMakesLargerCells) {
    for (const auto view : {ListView::View::Report, ListView::View::List, ListView::View::LargeIcons}) {
        list.setView(view);
        int last = 0;
        for (const int points : {8, 12}) {
            QFont font = list.font();
            font.setPointSize(points);
            list.setFont(font);
            QCoreApplication::processEvents();
            const int height = list.shownView()->visualRect(model.index(0, 0)).height();
            EXPECT_GE(height, QFontMetrics(font).height());
            EXPECT_GT(height, last);
            last = height;
        }
    }
}

}  // namespace
}  // namespace controls
