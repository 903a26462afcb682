#include <QLocale>
#include <cstdio>
#include <cstring>

#include "controls/pictures.h"
#include "frame/desktop_dialogs.h"
#include "frame/message_boxes.h"
#include "platform/command_line.h"
#include "platform/memory.h"
#include "platform/temporary_file.h"
#include "shell/application.h"
#include "shell/headless.h"
#include "shell/main_window.h"
#include "shell/startup.h"

namespace {

constexpr int wrongUsage = 2;
constexpr const char* version = "zarquelin " ZARQUELIN_VERSION "\n";
constexpr const char* help =
    "zarquelin [CATALOGUE | FOLDER]\n"
    "zarquelin --headless CATALOGUE FOLDER PICTURE\n"
    "zarquelin --help | --version\n";

// Prepares what every run needs of the toolkit.
void prepare(QApplication& application) {
    QApplication::setApplicationName(QStringLiteral("zarquelin"));
    QApplication::setDesktopFileName(QStringLiteral("zarquelin"));
    application.setQuitOnLastWindowClosed(false);  // hidden windows of the start come and go
    controls::installIconTheme();
}

int runOnDesktop(int argc, char** argv) {
    shell::Application application(argc, argv);
    prepare(application);
    if (argc > 2 || (argc == 2 && argv[1][0] == '-')) {  // the toolkit has taken its own options away
        std::fputs(help, stderr);
        return wrongUsage;
    }

    std::unique_ptr<frame::MessageBoxes> messages;
    frame::DesktopDialogs dialogs;
    shell::Startup* chain = nullptr;
    shell::Startup startup(
        platform::commandLine(argc, argv), [&](core::Language idioma) -> std::unique_ptr<shell::MainEntry> {
            messages = std::make_unique<frame::MessageBoxes>(idioma);
            auto window = std::make_unique<shell::Form1>(idioma, *messages, dialogs);
            QObject::connect(window.get(), &shell::Form1::aboutRequested, chain, &shell::Startup::showAbout);
            return window;
        });
    chain = &startup;
    startup.begin();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    const auto asksFor = [&](const char* option) { return argc == 2 && std::strcmp(argv[1], option) == 0; };
    if (asksFor("--help") || asksFor("--version"))
        return std::fputs(asksFor("--help") ? help : version, stdout) < 0 ? 1 : 0;
    platform::needMemory("zarquelin", std::size_t{48} << 20);
    platform::removeTemporariesOnSignals();
    if (argc == 5 && std::strcmp(argv[1], "--headless") == 0) {
        shell::Application application(argc, argv);
        prepare(application);
        return shell::runHeadless({argv[2], argv[3], argv[4]});
    }
    return runOnDesktop(argc, argv);
}
