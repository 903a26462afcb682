// Prints from the real window on a named printer: print_samples PRINTER. In each language a list of a hundred
// files of all kinds with long names, twice, and the statistics window.

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <cstdio>
#include <filesystem>
#include <string>

#include "controls/pictures.h"
#include "frame/menus.h"
#include "frame/pointer.h"
#include "shell/main_window.h"
#include "support/recording_messages.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

namespace {

constexpr const char* endings[] = {"txt", "jpg", "mp3", "avi", "exe", "html", "zip", "xyz"};

void writeFiles(const std::string& folder) {
    for (int file = 0; file < 100; ++file) {
        std::string name = "página " + std::to_string(file) + " ñandú & co";
        if (file % 3 == 0) name += " con un nombre bastante más largo de lo que cabe en la columna";
        test::writeFile(folder + '/' + name + '.' + endings[file % std::size(endings)],
                        std::string(static_cast<std::size_t>(file * file * 40), 'x'));
    }
}

bool print(core::Language language, const QString& printerName) {
    const test::TemporaryFolder scratch;
    const std::string disc = scratch / "disc";
    std::filesystem::create_directory(disc);
    writeFiles(disc);
    test::RecordingMessages messages;
    test::ScriptedDialogs dialogs;
    bool sent = true;
    dialogs.onPrint = [&](QPrinter& printer) {
        printer.setPrinterName(printerName);
        printer.setDocName(language == core::Language::Spanish ? QStringLiteral("es") : QStringLiteral("en"));
        sent = sent && printer.isValid() && printer.printerName() == printerName;
    };
    shell::Form1 window(language, messages, dialogs);
    window.begin({});
    const auto choose = [&](const char* entry) {
        window.surface().frame.menus.action(QString::fromUtf8(entry))->trigger();
    };
    dialogs.answers.push_back(QString::fromStdString(scratch / "discs.zrq"));
    choose("nuevo");
    window.importFolder(disc);
    window.findChild<QLineEdit*>(QStringLiteral("Text3"))->setText(QStringLiteral("Disc 1"));
    window.findChild<QPushButton*>(QStringLiteral("Label20"))->click();
    controls::TreeView& tree = window.surface().treeView1;
    tree.setSelected(tree.nodes().firstChild(browse::noNode));
    emit tree.nodeClicked(tree.selected());
    dialogs.copies = 2;
    choose("Imprimir");
    dialogs.copies = 1;
    choose("graficos");
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->objectName() == QLatin1String("Form4"))
            each->findChild<QPushButton*>(QStringLiteral("Command2"))->click();
    return sent;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    controls::installIconTheme();
    if (argc != 2) {
        std::fputs("usage: print_samples PRINTER\n", stderr);
        return 2;
    }
    const QString printer = QString::fromLocal8Bit(argv[1]);
    if (print(core::Language::English, printer) && print(core::Language::Spanish, printer)) return 0;
    std::fprintf(stderr, "%s: there is no such printer\n", argv[1]);
    return 1;
}
