#include "shell/startup.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QSettings>

#include "platform/settings.h"
#include "platform/shell_open.h"
#include "shell/frame/catalogue.h"
#include "shell/frame/frame.h"
#include "shell/frame/menus.h"
#include "shell/frame/status_band.h"
#include "shell/frame/toolbar.h"
#include "shell/language_choice.h"
#include "shell/language_chooser.h"
#include "shell/links.h"
#include "shell/quick_start.h"
#include "shell/splash.h"
#include "support/recording_messages.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

namespace {

using core::Language;
using platform::GetSetting;
using platform::SaveSetting;

struct FakeMain : shell::MainEntry {
    explicit FakeMain(std::vector<std::string>& calls) : calls(calls) {}
    void begin(const std::string& catalogue) override { calls.push_back("begin " + catalogue); }
    void recentIsMissing() override { calls.emplace_back("no recent"); }
    void nuevo1() override { calls.emplace_back("nuevo1"); }
    void abrir1() override { calls.emplace_back("abrir1"); }
    void reciente1() override { calls.emplace_back("reciente1"); }
    std::vector<std::string>& calls;
};

struct Start : testing::Test {
    Start() {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(folder.path()));
    }
    void start(const std::string& commandLine = "") {
        startup.emplace(commandLine, [this](Language idioma) {
            calls.emplace_back(idioma == Language::Spanish ? "Spanish" : "English");
            return std::make_unique<FakeMain>(calls);
        });
        startup->begin();
    }
    void tickToTheEnd() {
        for (int tick = 1; tick <= 20; ++tick) startup->splash()->tick();
        EXPECT_TRUE(calls.empty()) << "one tick is left";
        startup->splash()->tick();
    }
    static void press(const QWidget& window, const char* name) {
        window.findChild<QAbstractButton*>(QString::fromUtf8(name))->click();
    }
    [[nodiscard]] bool shows(const char* name) const {
        return !startup->quickStart()->findChild<QWidget*>(QString::fromUtf8(name))->isHidden();
    }

    test::TemporaryFolder folder;
    std::vector<std::string> calls;
    std::optional<shell::Startup> startup;
};

using Calls = std::vector<std::string>;

TEST_F(Start, AFirstRunAsksForTheLanguageAndShowsTheQuickStart) {
    start();
    const shell::Form5& chooser = *startup->languageChooser();
    EXPECT_TRUE(chooser.isVisible());
    EXPECT_EQ(chooser.focusWidget()->objectName(), "Command1");
    EXPECT_EQ(startup->splash(), nullptr);
    press(chooser, "Option1(1)");
    press(chooser, "Command1");
    EXPECT_FALSE(chooser.isVisible());
    EXPECT_TRUE(startup->splash()->isVisible());
    EXPECT_EQ(GetSetting("idioma"), "Español");
    EXPECT_EQ(GetSetting("iniciorapido"), "si");

    tickToTheEnd();
    EXPECT_FALSE(startup->splash()->isVisible());
    EXPECT_EQ(calls, (Calls{"Spanish", "begin ", "no recent"}));
    EXPECT_TRUE(startup->quickStart()->isVisible());
    EXPECT_FALSE(shows("Command3") || shows("Label1") || shows("Label2"));
    EXPECT_TRUE(shows("Command1") && shows("Command2"));
}

TEST_F(Start, WithoutAChoiceTheRunIsEnglishAndAsksAgainNextTime) {
    start();
    press(*startup->languageChooser(), "Command1");
    tickToTheEnd();
    EXPECT_EQ(calls.front(), "English");
    EXPECT_EQ(GetSetting("idioma"), "");
}

TEST_F(Start, TheQuickStartOffersTheLastFile) {
    const std::string last = folder / "ñ & co.zrq";
    test::writeFile(last, "");
    SaveSetting("idioma", "English");
    SaveSetting("iniciorapido", "si");
    SaveSetting("lastfile", last);
    start();
    EXPECT_EQ(startup->languageChooser(), nullptr);
    tickToTheEnd();
    EXPECT_EQ(calls, (Calls{"English", "begin "}));
    const shell::Form8& quickStart = *startup->quickStart();
    EXPECT_EQ(quickStart.findChild<QLabel*>("Label1")->text().toStdString(), last);
    EXPECT_EQ(quickStart.focusWidget()->objectName(), "Command3");

    press(quickStart, "Command3");
    EXPECT_FALSE(quickStart.isVisible());
    EXPECT_EQ(GetSetting("iniciorapido"), "si");
    press(quickStart, "Check1");
    press(quickStart, "Command1");
    EXPECT_EQ(GetSetting("iniciorapido"), "no");
    press(quickStart, "Command2");
    EXPECT_EQ(calls, (Calls{"English", "begin ", "reciente1", "nuevo1", "abrir1"}));
}

TEST_F(Start, ADeletedLastFileIsNotOffered) {
    SaveSetting("idioma", "something else");
    SaveSetting("iniciorapido", "si");
    SaveSetting("lastfile", folder / "gone.zrq");
    start();
    tickToTheEnd();
    EXPECT_EQ(calls, (Calls{"English", "begin ", "no recent"}));
    EXPECT_FALSE(shows("Command3"));
}

TEST_F(Start, ACommandLineOrTheSettingLeavesTheQuickStartOut) {
    SaveSetting("idioma", "English");
    SaveSetting("iniciorapido", "si");
    start("\"/a b.zrq\"");
    tickToTheEnd();
    EXPECT_EQ(calls, (Calls{"English", "begin /a b.zrq"}));
    EXPECT_EQ(startup->quickStart(), nullptr);

    calls.clear();
    SaveSetting("iniciorapido", "no");
    start();
    tickToTheEnd();
    EXPECT_EQ(calls, (Calls{"English", "begin "}));
    EXPECT_EQ(startup->quickStart(), nullptr);
}

TEST_F(Start, TheSplashComesBackAsAboutBoxAndAllWindowsEnd) {
    SaveSetting("idioma", "Español");
    start();
    tickToTheEnd();
    startup->showAbout();
    shell::Form2& about = *startup->splash();
    EXPECT_TRUE(about.isVisible());
    EXPECT_TRUE(about.findChild<QLabel*>("Label2")->text().startsWith("Versión: 1."));
    auto* picture = about.findChild<QWidget*>("Picture1");
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                        Qt::NoButton, {});
    QApplication::sendEvent(picture, &release);
    EXPECT_FALSE(about.isVisible());
    EXPECT_EQ(calls.size(), 2u) << "the main window comes once";

    startup->showAbout();
    QWidget main;
    main.show();
    shell::salida();
    EXPECT_FALSE(about.isVisible() || main.isVisible());
}

TEST_F(Start, ALanguageChosenInTheMenuHoldsFromTheNextStart) {
    shell::MenuBar menus(Language::English);
    shell::Toolbar toolbar(Language::English);
    shell::StatusBand status;
    shell::Catalogue catalogue;
    test::RecordingMessages messages;
    test::ScriptedDialogs dialogs;
    shell::Frame frame{.idioma = Language::English,
                       .catalogue = catalogue,
                       .messages = messages,
                       .dialogs = dialogs,
                       .menus = menus,
                       .toolbar = toolbar,
                       .status = status};
    shell::chooseLanguage(Language::Spanish, frame);
    EXPECT_EQ(GetSetting("idioma"), "Español");
    EXPECT_EQ(
        messages.shown.back(),
        (test::RecordingMessages::Shown{"Changes will take place the next time you initiate this aplication.",
                                        "Languaje change", shell::MessageStyle::Information}));
    EXPECT_TRUE(menus.action("English")->isChecked());

    catalogue.rememberAsLast();
    EXPECT_EQ(GetSetting("lastfile"), "") << "nothing is open";
    catalogue.setPath("/a.zrq");
    catalogue.rememberAsLast();
    EXPECT_EQ(catalogue.last() + GetSetting("lastfile"), "/a.zrq/a.zrq");
}

TEST_F(Start, LinksOpenTheFilesBesideTheProgram) {
    std::vector<std::string> opened;
    platform::setShellOpener([&](const std::string& target, const std::string&) {
        opened.push_back(target);
        return true;
    });
    shell::openLink(shell::Link::Website, Language::Spanish);
    shell::openLink(shell::Link::Support, Language::English);
    shell::openFeedback(Language::English);
    platform::setShellOpener({});
    ASSERT_EQ(opened.size(), 3u);
    EXPECT_NE(opened[0].find("/es"), std::string::npos) << opened[0];
    EXPECT_NE(opened[1].find("/support"), std::string::npos) << opened[1];
    EXPECT_EQ(opened[2].find("mailto:"), 0u);
}

}  // namespace
