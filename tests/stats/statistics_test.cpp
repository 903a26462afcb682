#include "stats/statistics.h"

#include <gtest/gtest.h>

#include "stats/chart_scale.h"
#include "stats/sample_catalogue.h"

using stats::Scope;
using stats::Statistics;
using stats::TotalLimit;

namespace {

using Counts = std::array<std::int64_t, stats::categoryCount>;

Statistics counted(const test::SampleCatalogue& catalogue, const Scope& scope) {
    jet::Database database = catalogue.open();
    const auto statistics = stats::countScope(database, scope, TotalLimit::Window);
    EXPECT_TRUE(statistics);
    return statistics.value_or(Statistics{});
}

}  // namespace

TEST(StatisticsStatements, UnitScopeKeepsItsOddBlanks) {
    const Scope unit{"U :", {}};
    EXPECT_EQ(
        stats::selectCategory(unit, 0),
        "select * from datos where disco =('U :') and archivo  like ('*.mp3') or disco =('U :') and archivo  "
        "like ('*.wav') or disco =('U :') and archivo  like ('*.wma') or disco =('U :') and archivo  like "
        "('*.mid') order by numero");
    EXPECT_EQ(
        stats::selectCategory(unit, 1),
        "select * from datos where disco = ('U :') and archivo  like ('*.txt') or disco =('U :') and archivo "
        " "
        "like ('*.doc') or disco =('U :') and archivo  like ('*.pdf') or disco =('U :') and archivo  like "
        "('*.nfo') or disco =('U :') and archivo  like ('*.dat') order by numero");
    EXPECT_EQ(
        stats::selectCategory(unit, 3),
        "select * from datos where disco = ('U :') and archivo  like ('*.jpg') or disco =('U :') and archivo "
        " "
        "like ('*.bmp') or disco =('U :') and archivo like ('*.gif') or disco =('U :') and archivo  like "
        "('*.ico') order by numero");
    EXPECT_EQ(stats::selectCategory(unit, 4),
              "select * from datos where disco = ('U :') and archivo  like ('*.exe') order by numero");
    EXPECT_EQ(
        stats::selectCategory(unit, 5),
        "select * from datos where disco = ('U :') and archivo  like ('*.avi') or disco =('U :') and archivo "
        " "
        "like ('*.mpge') or disco =('U :') and archivo  like ('*.mpg') or disco =('U :') and archivo  like "
        "('*.mov*') or disco =('U :') and archivo  like ('*.asf*') order by numero");
    EXPECT_EQ(stats::selectTotal(unit),
              "select * from datos where disco = ('U :')  and tipo =('archivo')order by numero");
}

TEST(StatisticsStatements, FolderScopeOrdersSomeEndingsDifferently) {
    const Scope folder{"U :", "\\a\\b"};
    EXPECT_EQ(
        stats::selectCategory(folder, 2),
        "select * from datos where disco = ('U :')and ruta like ('*\\a\\b*') and archivo  like ('*.mht') or "
        "disco = ('U :')and ruta like ('*\\a\\b*') and archivo  like ('*.html') or disco = ('U :')and ruta "
        "like "
        "('*\\a\\b*') and archivo  like ('*.htm') order by numero");
    EXPECT_EQ(
        stats::selectTotal(folder),
        "select * from datos where disco = ('U :')and ruta like ('*\\a\\b*')  and tipo =('archivo')order by "
        "numero");
    const auto at = [&](std::size_t category, const char* ending) {
        return stats::selectCategory(folder, category).find(ending);
    };
    EXPECT_LT(at(1, "*.dat')"), at(1, "*.txt')"));
    EXPECT_LT(at(1, "*.doc')"), at(1, "*.pdf')"));
    EXPECT_NE(at(5, "like ('*.mov')"), std::string::npos);  // closed at its end, unlike the unit's
    EXPECT_NE(at(3, "archivo  like ('*.gif')"), std::string::npos);
}

TEST(StatisticsCount, TellsScopesAndCategoriesApart) {
    test::SampleCatalogue catalogue;
    catalogue.addFiles("U :", "C:\\m\\canciones", "song.MP3");
    catalogue.addFiles("U :", "C:\\m\\canciones", "a.mov.zip");
    catalogue.addFiles("U :", "C:\\m\\canciones\\dos", "notas.txt", 2);
    catalogue.addFiles("U :", "C:\\m\\otra", "b.mpeg");
    catalogue.addFiles("U :", "C:\\m\\otra", "c.cab");
    catalogue.addFiles("V :", "D:\\m\\canciones", "otra.mp3");
    catalogue.addFolder("U :", "C:\\m\\canciones", "canciones");

    // The doubly counted file is taken off Resto.
    const Statistics unit = counted(catalogue, {"U :", {}});
    EXPECT_EQ(unit.cantidadcategoria, (Counts{1, 2, 0, 0, 0, 1, 1, 1}));
    EXPECT_EQ(unit.totalarchivos, 6);
    const Statistics folder = counted(catalogue, {"U :", "\\canciones"});
    EXPECT_EQ(folder.cantidadcategoria, (Counts{1, 2, 0, 0, 0, 0, 1, 0}));
    EXPECT_EQ(folder.totalarchivos, 4);
}

TEST(StatisticsCount, RestoFallsBelowZeroAndEmptyScopesAreNoError) {
    test::SampleCatalogue catalogue;
    catalogue.addFolder("U :", "C:\\m\\vacía", "vacía");
    EXPECT_EQ(counted(catalogue, {"U :", {}}), Statistics{});

    catalogue.addFiles("U :", "C:\\m", "a.mov.zip", 3);
    const Statistics statistics = counted(catalogue, {"U :", {}});
    EXPECT_EQ(statistics.cantidadcategoria, (Counts{0, 0, 0, 0, 0, 3, 3, -3}));
    EXPECT_EQ(statistics.percentage(stats::restIndex), -100);

    jet::Database database = catalogue.open();
    EXPECT_FALSE(stats::countScope(database, {"U'", {}}, TotalLimit::None));
}

TEST(StatisticsCount, WindowStopsBehind32767Files) {
    test::SampleCatalogue catalogue;
    catalogue.addFiles("U :", "C:\\m", "a.txt", 32767);
    int steps = 0;
    jet::Database database = catalogue.open();
    ASSERT_TRUE(stats::countScope(database, {"U :", {}}, TotalLimit::Window, [&] { ++steps; }));
    EXPECT_EQ(steps, 8);

    catalogue.addFiles("U :", "C:\\m", "b.txt");
    const auto refused = stats::countScope(database, {"U :", {}}, TotalLimit::Window, [&] { ++steps; });
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().number, stats::overflow);
    EXPECT_EQ(steps, 15);
    EXPECT_EQ(stats::countScope(database, {"U :", {}}, TotalLimit::None)->totalarchivos, 32768);
}

TEST(StatisticsPercentage, HalvesGoToTheEvenNeighbour) {
    const auto percentage = [](std::int64_t count, std::int64_t total) {
        Statistics statistics;
        statistics.cantidadcategoria[0] = count;
        statistics.totalarchivos = total;
        return statistics.percentage(0);
    };
    EXPECT_EQ(percentage(1, 8), 12);
    EXPECT_EQ(percentage(27, 200), 14);
    EXPECT_EQ(percentage(1, 3), 33);
    EXPECT_EQ(percentage(2, 3), 67);
    EXPECT_EQ(percentage(-1, 8), -12);
}

TEST(StatisticsTexts, FoldersKeepSpanishNamesInEnglish) {
    using core::Language;
    EXPECT_EQ(stats::scopeTitle(Language::Spanish, "U :"), " Estadísticas de:  U :");
    EXPECT_EQ(stats::scopeTitle(Language::English, "U :\\a"), " Statistics of:  U :\\a");
    EXPECT_EQ(stats::categoryName(Language::English, {"U :", {}}, 4), "Aplications:");
    EXPECT_EQ(stats::categoryName(Language::English, {"U :", "\\a"}, 4), "Programas:");
}

TEST(StatisticsCharts, ScalesAreRoundAndLabelsKeepApart) {
    for (const auto& [values, low, high, step] :
         std::vector<std::tuple<std::vector<std::int64_t>, int, int, int>>{{{0, 1}, 0, 1, 1},
                                                                           {{97}, 0, 100, 20},
                                                                           {{3, -5}, -6, 4, 2},
                                                                           {{32767}, 0, 40000, 10000},
                                                                           {{}, 0, 1, 1}}) {
        const auto scale = stats::chartScale(values);
        EXPECT_EQ(scale.low, low);
        EXPECT_EQ(scale.high, high);
        EXPECT_EQ(scale.step, step);
    }
    EXPECT_EQ(stats::spreadLabels({10, 50, 90}, 10, 0, 100), (std::vector<double>{10, 50, 90}));
    EXPECT_EQ(stats::spreadLabels({49, 50, 51}, 10, 0, 100), (std::vector<double>{40, 50, 60}));
    EXPECT_EQ(stats::spreadLabels({1, 2, 99}, 10, 0, 100), (std::vector<double>{5, 15, 95}));
}
