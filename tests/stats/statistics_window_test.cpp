#include "stats/statistics_window.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>

#include "shell/frame/catalogue.h"
#include "shell/frame/frame.h"
#include "shell/frame/menus.h"
#include "shell/frame/status_band.h"
#include "shell/frame/toolbar.h"
#include "stats/bar_chart_2d.h"
#include "stats/bar_chart_3d.h"
#include "stats/pie_chart.h"
#include "stats/sample_catalogue.h"
#include "stats/statistics_action.h"
#include "support/recording_messages.h"
#include "support/scripted_dialogs.h"

using core::Language;

namespace {

struct Browsing : stats::StatisticsHost {
    bool empty = false;
    std::optional<std::string> node;
    std::string path;
    std::optional<std::string> listed;
    core::Counters shown;

    [[nodiscard]] bool treeIsEmpty() const override { return empty; }
    [[nodiscard]] std::optional<std::string> selectedNode() const override { return node; }
    [[nodiscard]] bool isUnit(const std::string& text) const override { return text.ends_with(" :"); }
    [[nodiscard]] std::string place() const override { return "U :" + path; }
    [[nodiscard]] std::string rutaactual() const override { return path; }
    [[nodiscard]] std::optional<std::string> firstListedUnit() const override { return listed; }
    [[nodiscard]] core::Counters& counters() override { return shown; }
};

struct Desk {
    explicit Desk(Language idioma)
        : menus(idioma),
          toolbar(idioma),
          frame{idioma, catalogue, messages, dialogs, menus, toolbar, status},
          action(frame, browsing, &band) {
        catalogue.setPath(sample.path());
        status.setText("before");
        status.setParent(&band);
    }
    [[nodiscard]] QString text(const QString& name) const {
        return action.window()->findChild<QLabel*>(name)->text();
    }
    [[nodiscard]] bool windowShown() const { return action.window() && action.window()->isVisible(); }
    [[nodiscard]] bool barShown() { return !status.progress().isHidden(); }

    test::SampleCatalogue sample;
    shell::Catalogue catalogue;
    test::RecordingMessages messages;
    test::ScriptedDialogs dialogs;
    shell::MenuBar menus;
    shell::Toolbar toolbar;
    QWidget band;
    shell::StatusBand& status = *new shell::StatusBand;
    shell::Frame frame;
    Browsing browsing;
    stats::StatisticsAction action;
};

}  // namespace

TEST(Statistics, ShowsAUnitAndThenAFolderInTheSameWindow) {
    Desk desk(Language::English);
    desk.sample.addFolder("U :", "C:\\a", "a");
    desk.sample.addFiles("U :", "C:\\a", "uno.MP3");
    desk.sample.addFiles("U :", "C:\\a", "dos.txt", 2);
    desk.sample.addFiles("U :", "C:\\b", "tres.xyz", 5);
    desk.browsing.node = "U :";
    desk.toolbar.setPressed(shell::Toolbar::Search, true);
    desk.action.graficar1();

    ASSERT_TRUE(desk.windowShown());
    EXPECT_FALSE(desk.action.window()->isModal());
    EXPECT_EQ(desk.action.window()->windowTitle(), " Statistics of:  U :");
    EXPECT_EQ(desk.text("Label13"), " Statistics of:  U :");
    EXPECT_EQ(desk.text("Label1"), "Audio files:");
    EXPECT_EQ(desk.text("Label11(0)"), "1");
    EXPECT_EQ(desk.text("Label11(8)"), "12 %");
    EXPECT_EQ(desk.text("Label11(7)"), "5");
    EXPECT_EQ(desk.text("Label11(15)"), "62 %");
    EXPECT_EQ(desk.text("Label10(4)"), "8");
    EXPECT_FALSE(desk.barShown());
    EXPECT_EQ(desk.status.text(), "  Units: 1  Folders: 1  Files: 8");
    EXPECT_EQ(desk.browsing.shown.contadorarchivos, 8);
    EXPECT_TRUE(desk.toolbar.isPressed(shell::Toolbar::Search));

    const QPointer<stats::Form4> window = desk.action.window();
    desk.browsing.node = "a";
    desk.browsing.path = "\\a";
    desk.browsing.listed = "U :";
    desk.action.graficar1();
    EXPECT_EQ(desk.action.window(), window);
    EXPECT_EQ(desk.action.window()->windowTitle(), " Statistics of:  U :\\a");
    EXPECT_EQ(desk.text("Label2"), "Texto:");
    EXPECT_EQ(desk.text("Label11(9)"), "67 %");
    EXPECT_EQ(desk.text("Label10(4)"), "3");
    EXPECT_FALSE(desk.toolbar.isPressed(shell::Toolbar::Search));
}

TEST(Statistics, SaysSoWhenThereAreNoFiles) {
    Desk desk(Language::Spanish);
    desk.sample.addFolder("U :", "C:\\a", "a");
    desk.browsing.node = "U :";
    desk.action.graficar1();
    ASSERT_EQ(desk.messages.shown.size(), 1u);
    EXPECT_EQ(desk.messages.shown[0],
              (test::RecordingMessages::Shown{"Esta unidad no contiene archivos.", "zarquelin",
                                              shell::MessageStyle::Exclamation}));
    EXPECT_FALSE(desk.windowShown());
    EXPECT_FALSE(desk.barShown());
    EXPECT_EQ(desk.status.text(), " Generando Estadísticas ... ");
}

TEST(Statistics, EmptyTreeOnlyRewritesTheTotals) {
    Desk desk(Language::Spanish);
    desk.browsing.empty = true;
    desk.browsing.shown = {7, 8, 9};
    desk.action.graficar1();
    EXPECT_EQ(desk.status.text(), "  Unidades: 7  Carpetas: 8  Archivos: 9");  // no row: as they stood
    EXPECT_EQ(desk.action.window(), nullptr);

    desk.sample.addFiles("U :", "C:\\a", "a.txt");
    desk.action.graficar1();
    EXPECT_EQ(desk.status.text(), "  Unidades: 1  Carpetas: 0  Archivos: 1");
}

TEST(Statistics, OtherFailuresEndInSilence) {
    Desk desk(Language::Spanish);
    desk.sample.addFiles("U :", "C:\\a", "a.txt");
    desk.action.graficar1();  // nothing selected
    EXPECT_EQ(desk.status.text(), "before");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);

    desk.browsing.node = "a";  // a folder, but nothing is listed
    desk.action.graficar1();
    EXPECT_EQ(desk.status.text(), " Generando Estadísticas ... ");
    EXPECT_TRUE(desk.barShown());

    desk.browsing.node = "it's :";
    desk.action.graficar1();
    EXPECT_FALSE(desk.windowShown());
    EXPECT_TRUE(desk.messages.shown.empty());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(StatisticsWindow, TabsBringTheirPageAndCloseHides) {
    test::ScriptedDialogs dialogs;
    stats::Form4 window(Language::Spanish, dialogs);
    stats::Statistics statistics;
    statistics.cantidadcategoria = {3, 0, 0, 2, 0, 5, 6, -5};
    statistics.totalarchivos = 11;
    window.setStatistics(statistics, {"U :", {}});
    window.show();

    auto* tabs = window.findChild<QTabBar*>("TabStrip1");
    const QStringList titles{"Torta", "Barras 3D", "Barras 2D"};
    EXPECT_EQ(tabs->currentIndex(), 0);
    for (int tab : {2, 1, 0}) {
        tabs->setCurrentIndex(tab);
        EXPECT_EQ(tabs->tabText(tab), titles[tab]);
        for (int page = 0; page < 3; ++page) {
            EXPECT_EQ(window.findChild<QWidget*>(QString("Picture1(%1)").arg(page))->isVisible(),
                      page == tab);
            EXPECT_EQ(window.findChild<QWidget*>(QString("MSChart%1").arg(page + 1))->isVisible(),
                      page == tab);
        }
        EXPECT_FALSE(window.grab().isNull());
    }
    EXPECT_EQ(window.findChild<QPushButton*>("Command1")->nextInFocusChain(),
              window.findChild<QPushButton*>("Command2"));
    window.findChild<QPushButton*>("Command1")->click();
    EXPECT_FALSE(window.isVisible());
}

// The colour at a point of a chart's picture tells the bar or slice that stands there.
TEST(StatisticsWindow, ChartsPaintEachCategoryInItsColour) {
    stats::Statistics statistics;
    statistics.cantidadcategoria = {0, 0, 10, 0, 0, 10, 0, 0};
    statistics.totalarchivos = 20;
    const auto colours = [](QWidget& chart) {
        chart.resize(500, 360);
        const QImage image = chart.grab().toImage();
        QList<int> area(stats::categoryCount, 0);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                for (std::size_t category = 0; category < stats::categoryCount; ++category)
                    area[static_cast<int>(category)] +=
                        image.pixelColor(x, y) == stats::categoryColour(category);
        return area;
    };
    stats::PieChart pie{{}};
    stats::BarChart3D solid{{}};
    stats::BarChart2D flat{{}};
    pie.setStatistics(statistics);
    solid.setStatistics(statistics);
    flat.setStatistics(statistics);
    for (QWidget* chart :
         {static_cast<QWidget*>(&pie), static_cast<QWidget*>(&solid), static_cast<QWidget*>(&flat)}) {
        const QList<int> area = colours(*chart);
        EXPECT_GT(area[2], 1000);
        EXPECT_NEAR(area[2], area[5], area[2] / 10);
        EXPECT_LT(area[0] + area[1] + area[3] + area[4], 60);
    }
}

TEST(StatisticsWindow, PrintsEachCopyAndShowsTheTitleOnlyMeanwhile) {
    QTemporaryDir folder;
    test::ScriptedDialogs dialogs;
    stats::Form4 window(Language::English, dialogs);
    window.setScopeTitle("U :");
    window.show();
    auto* title = window.findChild<QLabel*>("Label13");
    auto* print = window.findChild<QPushButton*>("Command2");

    print->click();  // the dialog is cancelled
    EXPECT_FALSE(title->isVisible());
    QString target = folder.filePath("chart.pdf");
    dialogs.onPrint = [&](QPrinter& printer) { printer.setOutputFileName(target); };
    dialogs.copies = 2;
    print->click();
    EXPECT_GT(QFileInfo(target).size(), 5000);
    EXPECT_GT(QFileInfo(folder.filePath("chart (2).pdf")).size(), 5000);
    EXPECT_FALSE(title->isVisible());

    target = folder.filePath("no such folder/chart.pdf");
    print->click();
    EXPECT_TRUE(title->isVisible());  // the printer failed
}
