#include "lists/item_list.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>
#include <cstring>

#include "lists/column_sort.h"
#include "lists/item_model.h"

namespace lists {
namespace {

ListItem file(const std::string& name, std::int64_t largo) {
    ListItem item;
    item.text = name;
    item.largo = largo;
    item.nameKey = "b" + name;
    return item;
}

class ItemListTest : public testing::Test {
  protected:
    ItemListTest() {
        std::vector<ItemList::Column> columns(10);
        columns[0] = {"Nombre", 1.0 / 3};
        columns[3] = {"Tamaño", 1.0 / 5, Qt::AlignRight};
        columns[4] = {"Modificado", 1.0 / 5};
        list.resize(700, 400);
        list.setColumns(columns);
        list.show();
    }

    void fill(std::initializer_list<const char*> names) {
        list.beginFill();
        for (const char* name : names) list.add(file(name, static_cast<std::int64_t>(std::strlen(name))));
        list.endFill();
    }
    [[nodiscard]] QString shown() const {
        QStringList texts;
        for (int position = 0; position < list.model().rowCount(); ++position) texts << list.text(position);
        return texts.join(' ');
    }
    [[nodiscard]] QString selected() const {
        QStringList texts;
        for (int position = 0; position < list.count(); ++position)
            if (list.isSelected(position)) texts << list.text(position);
        return texts.join(' ');
    }
    [[nodiscard]] QTreeView& report() const { return *list.findChild<QTreeView*>("report"); }
    void click(int position, Qt::KeyboardModifiers keys = {}) {
        const QPoint at = report().visualRect(list.model().index(position, 0)).center();
        QTest::mouseClick(report().viewport(), Qt::LeftButton, keys, at);
    }

    ItemList list;
    QAbstractItemModelTester tester{report().model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ItemListTest, ShowsWhatWasAddedWhenTheFillEnds) {
    fill({"b", "a"});
    EXPECT_EQ(shown(), "b a");
    list.beginFill();
    list.add(file("c", 1));
    EXPECT_EQ(shown(), "b a");
    EXPECT_EQ(list.count(), 3);
    list.endFill();
    EXPECT_EQ(shown(), "b a c");
    list.add(file("d", 1));
    EXPECT_EQ(shown(), "b a c d");
    list.setNotes(1, "n");
    EXPECT_EQ(list.subItem(1, 1), "n");
    EXPECT_EQ(list.subItem(9, 1) + list.text(-1), "");
    EXPECT_TRUE(list.model().isConsistent());
}

TEST_F(ItemListTest, SortingMovesTheSelectionWithItsItems) {
    fill({"bb", "d", "aaa", "c"});
    click(0);
    click(1, Qt::ControlModifier);
    QSignalSpy clicks(&list, &ItemList::itemClicked);
    list.sort({.on = true, .key = 7});
    EXPECT_EQ(shown(), "aaa bb c d");
    EXPECT_EQ(selected(), "bb d");
    EXPECT_EQ(list.text(list.selectedPosition()), "d");
    list.sort({.on = true, .key = 6, .descending = true});
    EXPECT_EQ(shown(), "aaa bb d c");
    EXPECT_EQ(clicks.count(), 0);

    fill({"eeee"});
    EXPECT_EQ(shown(), "eeee aaa bb d c") << "sorting stays on";
    EXPECT_EQ(selected(), "bb d");
}

TEST_F(ItemListTest, AHeaderClickAsksForASort) {
    fill({"bb", "aaa"});
    QObject::connect(&list, &ItemList::columnClicked, &list,
                     [&](int column) { list.sort(sortingAfterClick(list.store().sorting(), column)); });
    QHeaderView& header = *report().header();
    for (const auto& [section, order] :
         {std::pair(1, Qt::DescendingOrder), std::pair(0, Qt::AscendingOrder)}) {
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {header.sectionPosition(section) + 20, 8});
        EXPECT_EQ(shown(), "aaa bb");
        EXPECT_EQ(header.sortIndicatorSection(), section);
        EXPECT_EQ(header.sortIndicatorOrder(), order);
    }
}

TEST_F(ItemListTest, ColumnsFollowTheListUntilTheUserDragsOne) {
    const int before = report().columnWidth(0);
    EXPECT_NEAR(before, 700 / 3, 12);
    EXPECT_EQ(report().model()->columnCount(), 3);
    list.resize(1000, 400);
    EXPECT_GT(report().columnWidth(0), before + 80);
    report().header()->resizeSection(0, 77);
    list.resize(700, 400);
    EXPECT_EQ(report().columnWidth(0), 77);
}

TEST_F(ItemListTest, WhatIsToBeReadWholeIsAtEverySize) {
    std::vector<ItemList::Column> columns(10);
    columns[0] = {"Name", 1.0 / 3};
    columns[1] = {"Notes", 1.0 / 12};
    columns[2] = {"Type", 1.0 / 5};
    columns[3] = {"Size", 1.0 / 5, Qt::AlignRight, "88888888 KB"};
    columns[4] = {"Modified", 1.0 / 5, Qt::AlignLeft, "2003-12-30 23:58:33"};
    list.setColumns(columns);
    list.resize(500, 400);
    for (const int points : {8, 10, 12}) {
        QFont font = list.font();
        font.setPointSize(points);
        list.setFont(font);
        const QFontMetrics metrics(report().font());
        for (const int column : {3, 4})
            EXPECT_GT(report().columnWidth(column), metrics.horizontalAdvance(columns[column].longest));
        EXPECT_GT(report().columnWidth(1), metrics.horizontalAdvance("Notes") + 12) << "and its arrow";
        EXPECT_GE(report().columnWidth(0), 18 * metrics.averageCharWidth()) << "a name can be told";
    }
    EXPECT_EQ(report().textElideMode(), Qt::ElideMiddle);
}

TEST_F(ItemListTest, TypingFindsAName) {
    fill({"alfa", "beta", "Ñu", "betún"});
    list.setFocus();
    click(0);
    QTest::keyClicks(&report(), "BET");
    EXPECT_EQ(selected(), "beta");
    EXPECT_EQ(list.model().match(list.model().index(0, 0), Qt::DisplayRole, "ñ", 1, {}).value(0).row(), 2);
    EXPECT_EQ(list.model().match(list.model().index(2, 0), Qt::DisplayRole, "beta", 1, {}).value(0).row(), 1);
    EXPECT_TRUE(list.model().match(list.model().index(0, 0), Qt::DisplayRole, "zz", 1, {}).empty());
}

}  // namespace
}  // namespace lists
