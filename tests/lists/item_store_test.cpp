#include "lists/item_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "core/serial_date.h"
#include "lists/column_sort.h"

namespace lists {
namespace {

ListItem folder(const std::string& name, double fecha = 38123.5) {
    ListItem item;
    item.text = name;
    item.picture = 3;
    item.smallPicture = 2;
    item.fecha = fecha;
    item.nameKey = "a" + name;
    item.disco = "Uno :";
    item.ruta = "E:\\fotos";
    return item;
}

ListItem file(const std::string& name, std::int64_t largo, double fecha = 38123.5) {
    ListItem item = folder(name, fecha);
    item.largo = largo;
    item.nameKey = "b" + name;
    return item;
}

std::string subItems(const ItemStore& store, std::size_t position) {
    std::string all;
    for (int number = 1; number <= subItemCount + 1; ++number) all += store.subItem(position, number) + '|';
    return all;
}

std::vector<std::string> texts(const ItemStore& store) {
    std::vector<std::string> result;
    for (std::size_t at = 0; at < store.size(); ++at) result.emplace_back(store.text(at));
    return result;
}

using Texts = std::vector<std::string>;

TEST(ItemStore, UnitsAreRenamedAndRemovedUnderAnySorting) {
    ItemStore store;
    for (const char* name : {"c", "a", "b"})
        for (const char* disco : {"Uno :", "Dos :"}) {
            ListItem item = folder(name);
            item.disco = disco;
            store.add(item);
        }
    store.sort({.on = true, .key = 0, .descending = true});
    store.renameUnits([](std::string_view disco) { return disco == "Uno :"; }, "Tres :");
    EXPECT_EQ(store.subItem(0, 8) + store.subItem(1, 8), "Tres :Dos :");
    store.removeUnits([](std::string_view disco) { return disco == "Dos :"; });
    EXPECT_EQ(texts(store), (std::vector<std::string>{"c", "b", "a"}));
    EXPECT_TRUE(store.isConsistent());
    store.removeUnits([](std::string_view) { return true; });
    EXPECT_EQ(store.size(), 0u);
}

TEST(ItemStore, ComputesTheColumnsOfFolderAndFile) {
    ItemStore store;
    store.add(folder("Mar"));
    store.add(file("a.jpg", 0));
    ListItem found = file("B.JPG", 12'345'678'901'234);
    found.dateKeyIsSerial = true;
    found.notes = "azul";
    store.add(found);

    const std::string date = core::dateText(38123.5) + '|';
    EXPECT_EQ(subItems(store, 0), "|| |" + date + date + "|aMar|Uno :|E:\\fotos||");
    EXPECT_EQ(subItems(store, 1), "||0 KB|" + date + date + "0000000000|ba.jpg|Uno :|E:\\fotos||");
    EXPECT_EQ(subItems(store, 2), "azul||12345678901234 KB|" + date + core::decimalText(38123.5) +
                                      "|5678901234|bB.JPG|Uno :|E:\\fotos||")
        << "of the size the last ten characters";
    EXPECT_EQ(store.picture(0) * 10 + store.smallPicture(0), 32);
    store.setNotes(1, "verde");
    EXPECT_EQ(store.subItem(1, 1) + store.subItem(2, 1), "verdeazul");
}

TEST(ItemStore, ReturnsEveryNameKeyAsItWasGiven) {
    const std::string text = "Ñandú.JPG";
    for (const std::string key : {"aÑandú.JPG", "bÑandú.JPG", "bÑandú.jpg", "bñandú.jpg", "", "b",
                                  "xÑandú.JPG", "something much longer than the name"}) {
        ItemStore store;
        ListItem item = file(text, 1);
        item.nameKey = key;
        store.add(item);
        EXPECT_EQ(store.subItem(0, 7), key);
        EXPECT_EQ(store.text(0), text);
    }
}

TEST(ItemStore, SortsFoldersFirstUpAndLastDownWithTiesAsAdded) {
    ItemStore store;
    for (const char* name : {"b", "B", "a"}) store.add(file(name, 5));
    for (const char* name : {"z", "Z"}) store.add(folder(name));
    const int key = sortKeyOfColumn(1);
    store.sort({.on = true, .key = key, .descending = true});
    EXPECT_EQ(texts(store), (Texts{"b", "a", "B", "z", "Z"}));
    store.sort({.on = true, .key = 6, .descending = true});  // all sizes equal, folders without
    EXPECT_EQ(texts(store), (Texts{"b", "B", "a", "z", "Z"}));
    store.sort({.on = true, .key = key});
    store.add(folder("M"));
    EXPECT_EQ(texts(store), (Texts{"Z", "z", "B", "a", "b", "M"}));
    store.sortAgain();
    EXPECT_EQ(texts(store).front(), "M");
    EXPECT_EQ(store.numberOf(0), 5U);
    store.clear();
    EXPECT_TRUE(store.size() == 0 && store.sorting().on) << "clearing the items leaves the sorting";
}

// Against a plain sort of the same keys: common beginnings, keys within keys, bytes of zero and above 127.
TEST(ItemStore, SortsLikeAPlainSort) {
    std::mt19937 random(7);
    const Texts pieces{"",    "a", "folder", "img_000", "ñ", "é", "\xef\xbf\xbd", "Z", std::string(1, '\0'),
                       "日本"};
    for (const bool descending : {false, true}) {
        ItemStore store;
        Texts expected;
        for (int added = 0; added < 3000; ++added) {
            std::string name = "shared";
            for (int piece = 0; piece < 5; ++piece) name += pieces[random() % pieces.size()];
            store.add(file(name, 1));
            expected.push_back(name);
        }
        std::stable_sort(expected.begin(), expected.end(), [&](const std::string& a, const std::string& b) {
            return descending ? b < a : a < b;
        });
        store.sort({.on = true, .key = 0, .descending = descending});
        EXPECT_EQ(texts(store), expected);
        EXPECT_TRUE(store.isConsistent());
        for (std::size_t at = 1; at < store.size(); ++at)
            EXPECT_TRUE(store.text(at - 1) != store.text(at) || store.numberOf(at - 1) < store.numberOf(at));
    }
}

TEST(ItemStore, SizesSortAsNumbersAndDatesAsShown) {
    ItemStore store;
    const std::pair<int, double> files[]{{9, 38000}, {100, 37000}, {10, 36000}};
    for (const auto& [largo, fecha] : files) store.add(file(std::to_string(largo), largo, fecha));
    store.sort({.on = true, .key = sortKeyOfColumn(4)});
    EXPECT_EQ(texts(store), (Texts{"9", "10", "100"}));
    store.sort({.on = true, .key = sortKeyOfColumn(5)});
    for (std::size_t at : {1, 2}) EXPECT_LE(store.subItem(at - 1, 4), store.subItem(at, 4));
}

TEST(ColumnSort, EachClickTurnsTheOrderOver) {
    const ItemStore::Sorting first = sortingAfterClick({}, 1);
    EXPECT_EQ(first, (ItemStore::Sorting{.on = true, .key = 7, .descending = true}));
    EXPECT_EQ(sortingAfterClick(first, 4), (ItemStore::Sorting{.on = true, .key = 6, .descending = false}));
    EXPECT_EQ(sortingAfterClick({}, 9).key, 8);
    for (int column = 1; column <= 5; ++column) EXPECT_EQ(columnOfSortKey(sortKeyOfColumn(column)), column);
    EXPECT_EQ(columnOfSortKey(9), 10);
    EXPECT_EQ(columnOfSortKey(0), 0);
}

}  // namespace
}  // namespace lists
