// What the main window's own procedures take, in seconds, one figure a line behind its name, then the same in
// time of the processor, which other work on the machine disturbs less. Run with
// QT_QPA_PLATFORM=offscreen where there is no screen.
//
//     window_bench open   CATALOGUE
//     window_bench scan   CATALOGUE NAME FOLDER
//     window_bench search CATALOGUE TEXT
//     window_bench click  CATALOGUE UNIT

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>

#include "controls/pictures.h"
#include "frame/menus.h"
#include "search/search_panel.h"
#include "shell/main_window.h"

namespace {

using browse::Node;

class PrintedMessages : public frame::Messages {
  public:
    void show(const QString& text, const QString&, frame::MessageStyle) override {
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    }
    bool askYesNo(const QString&, const QString&) override { return false; }
};

class KnownFolder : public frame::Dialogs {
  public:
    explicit KnownFolder(QString folder) : m_folder(std::move(folder)) {}
    QString openCatalogue(const QString&, const QString&) override { return {}; }
    QString saveCatalogue(const QString&, const QString&) override { return {}; }
    QString chooseFolder(const QString&) override { return m_folder; }
    std::optional<int> print(QPrinter&) override { return std::nullopt; }

  private:
    QString m_folder;
};

// Runs the work and what it leaves to the event queue, the painting of the window included.
void timed(shell::Form1& window, const char* name, const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    const std::clock_t before = std::clock();
    work();
    QCoreApplication::processEvents();
    static_cast<void>(window.grab());
    std::printf("%s %.6f\n", name, static_cast<double>(timer.nsecsElapsed()) / 1e9);
    std::printf("%s-cpu %.6f\n", name, static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC);
}

template <class Control>
Control& control(shell::Form1& window, const char* name) {
    auto* found = window.findChild<Control*>(QString::fromUtf8(name));
    if (!found) qFatal("there is no %s", name);
    return *found;
}

void open(shell::Form1& window, const std::string& catalogue) {
    window.show();
    QCoreApplication::processEvents();
    timed(window, "open", [&] { window.begin(catalogue); });
}

int scan(shell::Form1& window, const char* name) {
    window.surface().frame.menus.action(QStringLiteral("explore"))->trigger();
    control<QPushButton>(window, "Label19").click();
    control<QLineEdit>(window, "Text3").setText(QString::fromUtf8(name));
    timed(window, "scan", [&] { control<QPushButton>(window, "Label20").click(); });
    return 0;
}

int searchFor(shell::Form1& window, const char* text) {
    window.surface().frame.menus.action(QStringLiteral("buscar"))->trigger();
    control<QComboBox>(window, "Combo2").setEditText(QString::fromUtf8(text));
    const auto click = [&] { control<QPushButton>(window, "Label5").click(); };
    timed(window, "search", click);
    const auto& panel = control<search::SearchPanel>(window, "Picture1");
    timed(window, "idle", [&] {
        while (panel.isFillingMemory()) QCoreApplication::processEvents();
    });
    for (const char* name : {"again", "third"}) timed(window, name, click);
    std::printf("rows %d\n", window.surface().lists.listView2.count());
    return 0;
}

// The unit, its last folder at the top level, and the first folder within that one.
int click(shell::Form1& window, const char* unit) {
    controls::TreeView& tree = window.surface().treeView1;
    const auto clickOn = [&](const char* name, Node node) {
        tree.setSelected(node);
        timed(window, name, [&] { emit tree.nodeClicked(node); });
    };
    Node root = tree.nodes().firstChild(browse::noNode);
    while (root != browse::noNode && tree.nodes().text(root) != QString::fromUtf8(unit) + " :")
        root = tree.nodes().nextSibling(root);
    if (root == browse::noNode) {
        std::fprintf(stderr, "%s: there is no such unit\n", unit);
        return 1;
    }
    clickOn("first", root);
    std::printf("folders %d\n", tree.nodes().count());
    const Node folder = tree.nodes().lastChild(root);
    clickOn("folder", folder);
    clickOn("deeper", tree.nodes().firstChild(folder));
    clickOn("again", root);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const bool scans = argc == 5 && std::strcmp(argv[1], "scan") == 0;
    const bool asksForMore =
        argc == 4 && (std::strcmp(argv[1], "search") == 0 || std::strcmp(argv[1], "click") == 0);
    if (!scans && !asksForMore && !(argc == 3 && std::strcmp(argv[1], "open") == 0)) {
        std::fputs("usage: window_bench open|scan|search|click CATALOGUE [NAME FOLDER | TEXT | UNIT]\n",
                   stderr);
        return 2;
    }
    const QTemporaryDir settings;  // the user's own stay as they are
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zarquelin"));
    controls::installIconTheme();
    PrintedMessages messages;
    KnownFolder dialogs(scans ? QString::fromLocal8Bit(argv[4]) : QString());
    shell::Form1 window(core::Language::English, messages, dialogs);
    open(window, argv[2]);
    if (scans) return scan(window, argv[3]);
    if (std::strcmp(argv[1], "search") == 0) return searchFor(window, argv[3]);
    return asksForMore ? click(window, argv[3]) : 0;
}
