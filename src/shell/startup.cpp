#include "shell/startup.h"

#include <QApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <utility>

#include "platform/command_line.h"
#include "platform/files.h"
#include "platform/settings.h"
#include "shell/language_choice.h"
#include "shell/language_chooser.h"
#include "shell/logo.h"
#include "shell/quick_start.h"
#include "shell/quick_start_setting.h"
#include "shell/splash.h"

namespace shell {

namespace {

// The toolkit's own words, such as the buttons of a file dialog. Its language is English without any.
void translateToolkit(core::Language idioma) {
    if (idioma != core::Language::Spanish) return;
    auto* words = new QTranslator(qApp);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (words->load(QLocale(QLocale::Spanish), QStringLiteral("qtbase"), QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(words);
}

}  // namespace

Startup::Startup(std::string_view commandLine, MakeMain makeMain)
    : m_catalogue(platform::pathInCommandLine(commandLine)), m_makeMain(std::move(makeMain)) {
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
    const bool wantsQuickStart = m_catalogue.empty() && isQuickStartOn();
    m_main = m_makeMain(m_idioma);
    m_main->begin(m_catalogue);
    if (wantsQuickStart) showQuickStart();
}

void Startup::showQuickStart() {
    m_quickStart = std::make_unique<Form8>(m_idioma);
    connect(m_quickStart.get(), &Form8::createChosen, this, [this] { m_main->nuevo1(); });
    connect(m_quickStart.get(), &Form8::openChosen, this, [this] { m_main->abrir1(); });
    connect(m_quickStart.get(), &Form8::recentChosen, this, [this] { m_main->reciente1(); });
    const std::string last = platform::GetSetting("lastfile");
    if (!last.empty() && platform::FileExists(last)) {
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
