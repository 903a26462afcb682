#include "shell/startup.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <utility>

#include "platform/command_line.h"
#include "platform/files.h"
#include "platform/settings.h"
#include "shell/kept_choices.h"
#include "shell/language_chooser.h"
#include "shell/logo.h"
#include "shell/quick_start.h"
#include "shell/splash.h"
#include "shell/toolkit_words.h"

namespace shell {

namespace {

// The one that was open last, if it is still there.
std::string lastCatalogue() {
    const std::string last = platform::GetSetting("lastfile");
    return platform::FileExists(last) ? last : std::string();
}

}  // namespace

Startup::Startup(std::string_view commandLine, MakeMain makeMain)
    : m_catalogue(platform::pathInCommandLine(commandLine)), m_makeMain(std::move(makeMain)) {
    if (QFileInfo(QFile::decodeName(m_catalogue.c_str())).isDir()) {
        m_folder = std::exchange(m_catalogue, lastCatalogue());
    }
    // Windows are only hidden when their part is over, so the last one in sight decides nothing.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(logo());
}

Startup::~Startup() = default;

void Startup::begin() {
    if (isLanguageChosen()) return showSplash();
    m_chooser = std::make_unique<Form5>();
    connect(m_chooser.get(), &Form5::confirmed, this, &Startup::takeLanguage);
    connect(m_chooser.get(), &Form5::dismissed, this, &salida);
    m_chooser->show();
}

void Startup::takeLanguage() {
    if (const auto choice = m_chooser->choice()) saveLanguage(*choice);
    m_chooser->hide();
    showSplash();
    saveQuickStart(true);
}

void Startup::showSplash() {
    m_idioma = chosenLanguage();
    translateToolkit(m_idioma);
    m_splash = std::make_unique<Form2>(m_idioma);
    connect(m_splash.get(), &Form2::finished, this, &Startup::endSplash);
    m_splash->showAsSplash();
}

void Startup::endSplash() {
    const bool wantsQuickStart = m_catalogue.empty() && m_folder.empty() && isQuickStartOn();
    m_main = m_makeMain(m_idioma);
    m_main->begin(m_catalogue);
    if (!m_folder.empty()) m_main->importFolder(m_folder);
    if (wantsQuickStart) showQuickStart();
}

void Startup::showQuickStart() {
    m_quickStart = std::make_unique<Form8>(m_idioma);
    connect(m_quickStart.get(), &Form8::createChosen, this, [this] { m_main->nuevo1(); });
    connect(m_quickStart.get(), &Form8::openChosen, this, [this] { m_main->abrir1(); });
    connect(m_quickStart.get(), &Form8::recentChosen, this, [this] { m_main->reciente1(); });
    const std::string last = lastCatalogue();
    if (!last.empty()) {
        m_quickStart->setRecent(QFile::decodeName(QByteArray::fromStdString(last)));
    } else {
        m_main->recentIsMissing();
    }
    m_quickStart->show();
}

void Startup::showAbout() {
    m_splash->showAsAbout();
}

void salida() {
    static bool ending = false;
    if (std::exchange(ending, true)) return;
    for (QWidget* window : QApplication::topLevelWidgets()) window->close();
    QCoreApplication::quit();
    ending = false;
}

}  // namespace shell

#include "moc_startup.cpp"
