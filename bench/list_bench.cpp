// What a long result list costs: filling, showing and sorting by name, per row and as it grows; and a tree of
// a hundred thousand folders. With a number, what it costs to sort so many items by each column. Run with
// QT_QPA_PLATFORM=offscreen where there is no screen.

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <fstream>
#include <string>

#include "controls/pictures.h"
#include "controls/tree_view.h"
#include "lists/column_sort.h"
#include "lists/item_list.h"

namespace {

using View = controls::ListView::View;

long kilobytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(name + ":")) return std::stol(line.substr(name.size() + 1));
    return 0;
}

lists::ListItem itemNumber(int number) {
    // Names in no order, thirty to a folder, as a search over several discs finds them.
    const unsigned mixed = static_cast<unsigned>(number) * 2654435761U;
    lists::ListItem item;
    item.text = "holiday picture " + std::to_string(mixed % 10'000'000) + ".jpg";
    item.picture = item.smallPicture = 8;
    item.type = "archivo de imagen";
    item.largo = mixed % 5000;
    item.fecha = 38000 + mixed % 3000 + (mixed / 3000 % 86'400) / 86'400.0;
    item.dateKeyIsSerial = true;
    item.nameKey = "b" + item.text;
    item.disco = "Disc " + std::to_string(number / 20'000) + " :";
    item.ruta = "E:\\pictures\\2003\\folder " + std::to_string(number / 30);
    return item;
}

struct Stopwatch {
    QElapsedTimer timer;
    Stopwatch() { timer.start(); }
    double seconds() {
        const double passed = static_cast<double>(timer.nsecsElapsed()) / 1e9;
        timer.restart();
        return passed;
    }
};

void settle(lists::ItemList& list) {
    QCoreApplication::processEvents();
    (void)list.grab();
}

double benchList(int rows) {
    const long before = kilobytes("VmRSS");
    lists::ItemList list;
    std::vector<lists::ItemList::Column> columns(10);
    columns[0] = {"Nombre", 0.3};
    columns[2] = {"Tipo", 0.2};
    columns[3] = {"Tamaño", 0.2, Qt::AlignRight};
    columns[4] = {"Modificado", 0.2};
    list.resize(900, 600);
    list.setColumns(columns);
    list.show();
    settle(list);

    Stopwatch watch;
    list.beginFill();
    for (int number = 0; number < rows; ++number) list.add(itemNumber(number));
    list.endFill();
    const double fill = watch.seconds();
    settle(list);
    const double show = watch.seconds();
    list.sort({.on = true, .key = lists::sortKeyOfColumn(1)});
    settle(list);
    const double sort = watch.seconds();
    const double grown = static_cast<double>(kilobytes("VmRSS") - before) * 1024 / rows;
    std::printf(
        "%8d rows: fill %.3f s, show %.3f s, sort by name %.3f s, all %.3f s; %.0f bytes a row held, "
        "%.0f resident\n",
        rows, fill, show, sort, fill + show + sort, static_cast<double>(list.store().bytesUsed()) / rows,
        grown);

    for (const auto& [view, name] : {std::pair{View::List, "list"},
                                     {View::SmallIcons, "small icons"},
                                     {View::LargeIcons, "large icons"},
                                     {View::Report, "report"}}) {
        watch.seconds();
        list.setView(view);
        settle(list);
        const double change = watch.seconds();
        list.select(rows - 1);
        settle(list);
        std::printf("         to %-12s %.3f s, to its end %.3f s\n", name, change, watch.seconds());
        list.select(0);
    }
    list.sort({.on = true, .key = 9});
    std::printf("         sort by path %.3f s", watch.seconds());
    list.sort({.on = true, .key = 4, .descending = true});
    std::printf(", by date as text %.3f s", watch.seconds());
    list.findChild<QAbstractItemView*>("report")->selectAll();
    settle(list);
    std::printf(", select all %.3f s", watch.seconds());
    list.sort({.on = true, .key = 7});
    settle(list);
    std::printf(", sort by name then %.3f s\n", watch.seconds());
    return fill + show + sort;
}

void benchColumns(int rows) {
    const long before = kilobytes("VmRSS");
    lists::ItemList list;
    Stopwatch watch;
    list.beginFill();
    for (int number = 0; number < rows; ++number) list.add(itemNumber(number));
    list.endFill();
    const auto perRow = [rows](double amount) { return amount / rows; };
    std::printf("fill %.3f\nheld %.1f\n", 1e6 * perRow(watch.seconds()),
                perRow(static_cast<double>(list.store().bytesUsed())));
    for (const auto& [name, key] : {std::pair{"name", lists::sortKeyOfColumn(1)},
                                    {"notes", lists::sortKeyOfColumn(2)},
                                    {"type", lists::sortKeyOfColumn(3)},
                                    {"size", lists::sortKeyOfColumn(4)},
                                    {"date", lists::sortKeyOfColumn(5)},
                                    {"shown-date", int{lists::SubItem::Date}}}) {
        watch.seconds();
        list.sort({.on = true, .key = key});
        std::printf("%s %.3f\n", name, watch.seconds());
    }
    std::printf("most %.1f\n", perRow(static_cast<double>(kilobytes("VmHWM") - before) * 1024));
}

void benchTree(int nodes, bool open) {
    controls::TreeView tree;
    tree.resize(300, 600);
    tree.show();
    const controls::Node unit = tree.addNode(controls::noNode, "Disc :", 16, 16);
    tree.addNode(unit, "first", 2, 3);
    tree.setExpanded(unit, open);
    QCoreApplication::processEvents();
    const controls::TreeView::Filling filling(tree);  // as a unit's load does
    Stopwatch watch;
    controls::Node parent = unit;
    for (int added = 0; added < nodes; ++added) {
        const controls::Node node =
            tree.addNode(added % 10 == 0 ? unit : parent, "folder " + QString::number(added), 2, 3);
        if (added % 10 == 0) parent = node;
        QCoreApplication::processEvents();
    }
    const double fill = watch.seconds();
    tree.setExpanded(unit, true);
    QCoreApplication::processEvents();
    std::printf("%8d nodes under a unit that is %s: %.3f s; to open it %.3f s\n", nodes,
                open ? "open" : "closed", fill, watch.seconds());
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    controls::installIconTheme();
    if (argc > 1) {
        benchColumns(std::stoi(argv[1]));
        return 0;
    }
    const double once = benchList(300'000);
    const double fourTimes = benchList(1'200'000);
    std::printf("growth for four times the rows: %.1f\n", fourTimes / once);
    benchTree(100'000, false);
    benchTree(100'000, true);
    return 0;
}
