#include "stats/statistics_window.h"

#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>

#include "stats/bar_chart_2d.h"
#include "stats/bar_chart_3d.h"
#include "stats/pie_chart.h"
#include "stats/window_printing.h"
#include "support/catalogue_fixture.h"
#include "support/main_window.h"

using core::Language;

namespace {

class Statistics : public test::MainWindow {
  protected:
    void addFiles(const char* ruta, const char* name, int times = 1) const {
        sample.add(std::vector(std::size_t(times), test::fileRow("U :", ruta, name)));
    }
    stats::Form4& window() { return control<stats::Form4>("Form4"); }
    std::string text(const char* name) { return window().findChild<QLabel*>(name)->text().toStdString(); }
    static bool isHeldOpen(const std::string& path) {
        std::error_code gone;
        for (const auto& handle : std::filesystem::directory_iterator("/proc/self/fd"))
            if (std::filesystem::read_symlink(handle, gone) == path) return true;
        return false;
    }
    bool barShown() { return !frame().status.progress().isHidden(); }

    test::CatalogueFixture sample;
};

}  // namespace

TEST_F(Statistics, ShowsAUnitAndThenAFolderInTheSameWindow) {
    sample.add(test::folderRow("U :", "C:\\a"));
    addFiles("C:\\a", "uno.MP3");
    addFiles("C:\\a", "dos.txt", 2);
    addFiles("C:\\b", "tres.xyz", 5);
    start(Language::English, sample.path);
    click("U :");
    frame().toolbar.setPressed(frame::Toolbar::Search, true);
    choose("graficos");

    ASSERT_TRUE(window().isVisible());
    EXPECT_FALSE(window().isModal());
    EXPECT_EQ(window().focusWidget()->objectName(), "Command1");
    QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window().focusWidget()->objectName(), "Command2") << "from close to print";
    EXPECT_EQ(window().windowTitle().toStdString() + text("Label13"),
              " Statistics of:  U : Statistics of:  U :");
    EXPECT_EQ(text("Label1"), "Audio files:");
    EXPECT_EQ(text("Label11(0)") + text("Label11(8)"), "112 %");
    EXPECT_EQ(text("Label11(7)") + text("Label11(15)"), "562 %");
    EXPECT_EQ(text("Label10(4)"), "8");
    EXPECT_FALSE(barShown());
    EXPECT_EQ(status(), "  Units: 1  Folders: 1  Files: 8");
    EXPECT_TRUE(frame().toolbar.isPressed(frame::Toolbar::Search));

    const stats::Form4* same = &window();
    click("U :\\a");
    choose("graficos");
    EXPECT_EQ(&window(), same);
    EXPECT_EQ(window().windowTitle(), " Statistics of:  U :\\a");
    EXPECT_EQ(text("Label2"), "Texto:");
    EXPECT_EQ(text("Label11(9)"), "67 %");
    EXPECT_EQ(text("Label10(4)"), "3");
    EXPECT_FALSE(frame().toolbar.isPressed(frame::Toolbar::Search));
}

TEST_F(Statistics, SaysSoWhenThereAreNoFiles) {
    sample.add(test::folderRow("U :", "C:\\a"));
    start(Language::Spanish, sample.path);
    click("U :");
    choose("graficos");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0],
              (test::RecordingMessages::Shown{"Esta unidad no contiene archivos.", "zarquelin",
                                              frame::MessageStyle::Exclamation}));
    EXPECT_EQ(window().windowTitle(), " Estadísticas de:  U :");
    EXPECT_FALSE(window().isVisible() || barShown());
    EXPECT_EQ(status(), " Generando Estadísticas ... ");
    EXPECT_FALSE(isHeldOpen(sample.path)) << "it could be neither compacted nor unmounted";

    click("U :\\a");  // with nothing in it, the list tells no unit
    choose("graficos");
    EXPECT_EQ(status(), " Generando Estadísticas ... ");
    EXPECT_TRUE(barShown());
    EXPECT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Statistics, WhatEndsThemWithoutAWordIsExplained) {
    addFiles("C:\\a", "a.txt", 32768);
    for (const Language idioma : {Language::Spanish, Language::English}) {
        start(idioma, sample.path);
        click("U :");
        choose("graficos");
        EXPECT_FALSE(form->findChild<stats::Form4*>()->isVisible());
        EXPECT_TRUE(messages.shown.empty());
        EXPECT_EQ(control("Text9").toolTip().toStdString(),
                  idioma == Language::Spanish
                      ? "Más de 32767 archivos: las cifras las da «zarquelin-cli stats»."
                      : "More than 32767 files: zarquelin-cli stats tells the figures.");
        EXPECT_FALSE(isHeldOpen(sample.path));
        choose("actualizar1");
        EXPECT_EQ(control("Text9").toolTip(), "");
    }
    std::filesystem::remove(sample.path);
    choose("graficos");
    EXPECT_EQ(control("Text9").toolTip(), "It does not exist.");
}

TEST_F(Statistics, WithoutANodeOnlyTheTotalsOfAnEmptyTreeAreRewritten) {
    start(Language::Spanish, sample.path);
    addFiles("C:\\a", "a.txt");
    choose("graficos");
    EXPECT_EQ(status(), "  Unidades: 1  Carpetas: 0  Archivos: 1");
    choose("reciente");
    addFiles("C:\\a", "b.txt");
    choose("graficos");  // there is a tree now, but nothing is selected
    EXPECT_EQ(status(), "  Unidades: 1  Carpetas: 0  Archivos: 1");
    EXPECT_EQ(form->findChild<stats::Form4*>(), nullptr);
}

// The colour at a point of a chart's picture tells the bar or slice that stands there.
TEST(StatisticsWindow, ChartsPaintEachCategoryInItsColour) {
    stats::Statistics statistics;
    statistics.cantidadcategoria = {0, 0, 10, 0, 0, 10, 0, -5};
    statistics.totalarchivos = 15;
    const auto expectTwoColours = [&](auto&& chart) {
        chart.setStatistics(statistics);
        chart.resize(500, 360);
        const QImage image = chart.grab().toImage();
        std::array<int, stats::categoryCount> area{};
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                for (std::size_t category = 0; category < area.size(); ++category)
                    area[category] += image.pixelColor(x, y) == stats::categoryColour(category);
        EXPECT_GT(area[2], 1000);
        EXPECT_NEAR(area[2], area[5], area[2] / 10);
        EXPECT_LT(area[0] + area[1] + area[3] + area[4], 60);
    };
    expectTwoColours(stats::PieChart{{}});
    expectTwoColours(stats::BarChart3D{{}});
    expectTwoColours(stats::BarChart2D{{}});
}

TEST(StatisticsWindow, ItsImageStaysHalfAnInchFromTheEdgesOfThePaper) {
    EXPECT_EQ(stats::placeOnPaper({400, 300}, {11906, 16838}), QRectF(720, 720, 6000, 4500));
    EXPECT_EQ(stats::placeOnPaper({1600, 800}, {11440, 16838}), QRectF(720, 720, 10000, 5000));
    EXPECT_EQ(stats::placeOnPaper({800, 1600}, {11440, 11440}), QRectF(720, 720, 5000, 10000));
}

TEST_F(Statistics, PrintsEachCopyTurnsItsPagesAndCloses) {
    addFiles("C:\\a", "a.txt");
    start(Language::Spanish, sample.path);
    click("U :");
    choose("graficos");
    auto* title = window().findChild<QLabel*>("Label13");
    auto* print = window().findChild<QPushButton*>("Command2");
    print->setFocus();
    QTest::keyClick(print, Qt::Key_Return);  // the dialog is cancelled
    EXPECT_TRUE(window().isVisible()) << "Enter was for this button, not for the one that closes";
    EXPECT_FALSE(title->isVisible());
    std::string target = folder / "chart";
    dialogs.onPrint = [&](QPrinter& printer) { printer.setOutputFileName(QString::fromStdString(target)); };
    dialogs.copies = 2;
    print->click();
    for (const char* name : {"chart", "chart (2)"})
        EXPECT_GT(std::filesystem::file_size(folder / name), 5000u);
    EXPECT_FALSE(title->isVisible());
    target = folder / "no such folder/chart.pdf";
    print->click();
    EXPECT_TRUE(title->isVisible()) << "the printer failed";

    auto* tabs = window().findChild<QTabBar*>("TabStrip1");
    const QStringList titles{"Torta", "Barras 3D", "Barras 2D"};
    for (int tab : {2, 1, 0}) {
        tabs->setCurrentIndex(tab);
        EXPECT_EQ(tabs->tabText(tab), titles[tab]);
        for (int page = 0; page < 3; ++page)
            EXPECT_EQ(control(qPrintable(QString("MSChart%1").arg(page + 1))).isVisible(), page == tab);
    }
    window().findChild<QPushButton*>("Command1")->click();
    EXPECT_FALSE(window().isVisible());
}
