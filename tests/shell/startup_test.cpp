#include "shell/startup.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QSettings>
#include <QTimer>
#include <fstream>

#include "engine/database.h"
#include "frame/desktop_dialogs.h"
#include "frame/dialog_owner.h"
#include "platform/settings.h"
#include "shell/headless.h"
#include "shell/language_chooser.h"
#include "shell/links.h"
#include "shell/quick_start.h"
#include "shell/splash.h"
#include "shell/toolkit_words.h"
#include "support/opened_files.h"
#include "support/temporary_folder.h"

namespace {

using core::Language;
using platform::GetSetting;
using platform::SaveSetting;

struct FakeMain : shell::MainEntry {
    explicit FakeMain(std::vector<std::string>& calls) : calls(calls) {}
    void begin(const std::string& catalogue) override { calls.push_back("begin " + catalogue); }
    void importFolder(const std::string& folder) override { calls.push_back("import " + folder); }
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
    static void save(const std::string& idioma, const std::string& quick, const std::string& last = "") {
        SaveSetting("idioma", idioma);
        SaveSetting("iniciorapido", quick);
        SaveSetting("lastfile", last);
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
    EXPECT_TRUE(shows("Command1") && shows("Command2") && !shows("Command3"));
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
    save("English", "si", last);
    start();
    EXPECT_EQ(startup->languageChooser(), nullptr);
    tickToTheEnd();
    EXPECT_EQ(calls, (Calls{"English", "begin "}));
    const shell::Form8& quickStart = *startup->quickStart();
    auto* name = quickStart.findChild<QLabel*>("Label1");
    EXPECT_EQ(name->text().toStdString(), last);
    QLabel plain(name->text());
    plain.resize(name->size());
    const QImage shown = name->grab().toImage();
    EXPECT_TRUE(shown == plain.grab().toImage().convertToFormat(shown.format())) << "with its '&'";
    EXPECT_EQ(quickStart.focusWidget()->objectName(), "Command3");

    press(quickStart, "Command3");
    EXPECT_FALSE(quickStart.isVisible());
    EXPECT_EQ(GetSetting("iniciorapido"), "si");
    press(quickStart, "Check1");
    press(quickStart, "Command1");
    EXPECT_EQ(GetSetting("iniciorapido"), "no");
    press(quickStart, "Command2");
    EXPECT_EQ(calls, (Calls{"English", "begin ", "reciente1", "nuevo1", "abrir1"}));

    calls.clear();
    save("something else", "si", folder / "gone.zrq");
    start();
    tickToTheEnd();
    EXPECT_EQ(calls, (Calls{"English", "begin ", "no recent"}));
    EXPECT_FALSE(shows("Command3"));
}

TEST_F(Start, WhatIsGivenOrTheSettingLeavesTheQuickStartOut) {
    const std::string last = folder / "last.zrq", disc = folder.path();
    test::writeFile(last, "");
    struct Given {
        std::string argument, quick, last;
        Calls calls;
    };
    for (const Given& given : {Given{"/a b.zrq", "si", "", {"begin /a b.zrq"}},
                               {"", "no", "", {"begin "}},
                               {disc, "si", "", {"begin ", "import " + disc}},
                               {disc, "si", last, {"begin " + last, "import " + disc}}}) {
        save("English", given.quick, given.last);
        calls.clear();
        start('"' + given.argument + '"');
        tickToTheEnd();
        calls.erase(calls.begin());
        EXPECT_EQ(calls, given.calls);
        EXPECT_EQ(startup->quickStart(), nullptr);
    }
}

TEST_F(Start, TheSplashComesBackAsAboutBoxAndAllWindowsEnd) {
    save("Español", "no");
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

TEST_F(Start, ThePrintDialogIsSpanishAndOffersWhatCanBeDone) {
    shell::translateToolkit(Language::Spanish);
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", folder.path().c_str());  // which has no folder for documents
    QPrinter printer;
    QStringList texts;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        for (const auto* label : dialog->findChildren<QLabel*>()) texts << label->text();
        for (const auto* button : dialog->findChildren<QAbstractButton*>()) texts << button->text();
        for (const auto* group : dialog->findChildren<QGroupBox*>()) texts << group->title();
        EXPECT_FALSE(dialog->findChild<QWidget*>("from")->isVisible()) << "it prints every page";
        dialog->reject();
    });
    EXPECT_EQ(frame::DesktopDialogs().print(printer), std::nullopt);
    qputenv("HOME", home);
    if (printer.printerName().isEmpty()) {
        EXPECT_EQ(printer.outputFileName().toStdString(), folder / "zarquelin.pdf");
    }
    EXPECT_GT(texts.filter(QRegularExpression("[óñáé]")).size(), 3);
    EXPECT_EQ(QFileIconProvider().type(QFileInfo(folder.path().c_str())), "Carpeta");
    const QRegularExpression english("\\b(the|some|in|Pages|Off|binding|Printing|Advanced|Please|Copies)\\b");
    EXPECT_EQ(texts.filter(english).join('|').toStdString(), "");
}

TEST_F(Start, NoFileIsReplacedUnderANameThatWasNotAskedAbout) {
    std::ofstream(folder / "mine.zrq") << "work of years";
    int asked = 0;
    std::vector<std::string> typed{folder / "mine", folder / "yours", folder / "mine"};
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            asked += box->text().contains("mine.zrq");
            box->button(typed.empty() ? QMessageBox::Yes : QMessageBox::No)->click();
        } else if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            EXPECT_EQ(dialog->defaultSuffix(), "") << "a desktop's dialog adds it after its question";
            dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(typed.front()));
            typed.erase(typed.begin());
            QMetaObject::invokeMethod(dialog, "accept");
        }
    });
    person.start(0);
    frame::DesktopDialogs dialogs;
    EXPECT_EQ(dialogs.saveCatalogue("New", "(*.zrq)").toStdString(), folder / "yours.zrq");
    EXPECT_EQ(dialogs.saveCatalogue("New", "(*.zrq)").toStdString(), folder / "mine.zrq");
    EXPECT_EQ(asked, 2);
}

TEST_F(Start, ADialogNeverBelongsToAHiddenWindow) {
    EXPECT_EQ(frame::dialogOwner(), nullptr);
    QMainWindow main;
    main.show();
    QWidget quickStart;
    quickStart.show();
    QApplication::setActiveWindow(&quickStart);
    EXPECT_EQ(frame::dialogOwner(), &quickStart);
    quickStart.hide();
    EXPECT_EQ(frame::dialogOwner(), &main);
}

TEST_F(Start, LinksOpenTheFilesBesideTheProgram) {
    const test::OpenedFiles opened;
    shell::openLink(shell::Link::Website, Language::Spanish);
    shell::openLink(shell::Link::Support, Language::English);
    shell::openFeedback(Language::English);
    ASSERT_EQ(opened.targets.size(), 3u);
    EXPECT_TRUE(opened.targets[0].contains("/es")) << opened.targets[0];
    EXPECT_TRUE(opened.targets[1].contains("/support")) << opened.targets[1];
    EXPECT_TRUE(opened.targets[2].starts_with("mailto:") && opened.folders[2] == "/");

    test::writeFile(folder / "zarquelin.url", "[InternetShortcut]\nURL=https://zarquelin.example/other\n");
    shell::openLink(shell::Link::Website, Language::Spanish, folder.path());
    shell::openLink(shell::Link::Support, Language::Spanish, folder.path());  // in neither language
    ASSERT_EQ(opened.targets.size(), 4u);
    EXPECT_TRUE(opened.targets[3].contains("/other")) << opened.targets[3];
}

TEST_F(Start, HeadlessAFolderBecomesAUnitAndAPicture) {
    std::filesystem::create_directory(folder / "disc");
    test::writeFile(folder / "disc/a.txt", "x");
    const shell::HeadlessJob job{folder / "new.zrq", folder / "disc/../disc/", folder / "window.png"};
    for (int run = 0; run < 2; ++run) {  // the second finds the unit there
        EXPECT_EQ(shell::runHeadless(job), 0);
        EXPECT_GE(QImage(QString::fromStdString(job.picture)).width(), 700);
        std::filesystem::remove(job.picture);
        auto database = engine::OpenDatabase(job.catalogue, engine::Use::ReadOnly).value();
        EXPECT_EQ(database.OpenRecordset("select * from datos where disco=('disc :')").value().RecordCount(),
                  1);
    }
    EXPECT_EQ(shell::runHeadless({job.catalogue, folder / "missing", job.picture}), 1);
    EXPECT_EQ(shell::runHeadless({folder / "disc/a.txt", {}, job.picture}), 1);
    EXPECT_EQ(shell::runHeadless({job.catalogue, {}, folder / "missing/window.png"}), 1);
    EXPECT_EQ(shell::runHeadless({folder / "missing/new.zrq", {}, job.picture}), 1);
}

}  // namespace
