#include "stats/statistics.h"

#include <gtest/gtest.h>

#include "stats/chart_scale.h"
#include "support/catalogue_fixture.h"
#include "support/run_command.h"

using stats::Scope;
using stats::Statistics;
using stats::TotalLimit;

namespace {

using Counts = std::array<std::int64_t, stats::categoryCount>;

Statistics counted(const test::CatalogueFixture& catalogue, const Scope& scope) {
    engine::Database database = catalogue.open();
    const auto statistics = stats::countScope(database, scope, TotalLimit::Window);
    EXPECT_TRUE(statistics);
    return statistics.value_or(Statistics{});
}

}  // namespace

TEST(StatisticsCount, TellsScopesAndCategoriesApart) {
    const test::CatalogueFixture catalogue;
    std::vector<core::CatalogRow> rows{
        test::folderRow("U :", "C:\\m\\canciones"), test::fileRow("U :", "C:\\m\\otra", "b.mpeg"),
        test::fileRow("U :", "C:\\m\\otra", "c.cab"), test::fileRow("V :", "D:\\m\\canciones", "otra.mp3")};
    for (const char* ending :
         {"MP3", "wav", "wma", "mid", "txt", "doc",  "pdf", "nfo", "dat", "htm", "html", "mht", "jpg",
          "bmp", "gif", "ico", "exe", "avi", "mpge", "mpg", "mov", "asf", "zip", "rar",  "rad", "mov.zip"})
        rows.push_back(test::fileRow("U :", "C:\\m\\canciones\\dos", std::string("x.") + ending));
    catalogue.add(rows);

    // The doubly counted file is taken off Resto.
    const Statistics unit = counted(catalogue, {"U :", {}});
    EXPECT_EQ(unit.cantidadcategoria, (Counts{4, 5, 3, 4, 1, 6, 4, 1}));
    EXPECT_EQ(unit.totalarchivos, 28);
    const Statistics folder = counted(catalogue, {"U :", "\\canciones"});
    EXPECT_EQ(folder.cantidadcategoria, (Counts{4, 5, 3, 4, 1, 5, 4, 0}));
    EXPECT_EQ(folder.totalarchivos, 26);
}

TEST(StatisticsCount, RestoFallsBelowZeroAndEmptyScopesAreNoError) {
    const test::CatalogueFixture catalogue;
    catalogue.add(test::folderRow("U :", "C:\\m\\vacía"));
    EXPECT_EQ(counted(catalogue, {"U :", {}}), Statistics{});

    catalogue.add(std::vector(3, test::fileRow("U :", "C:\\m", "a.mov.zip")));
    const Statistics statistics = counted(catalogue, {"U :", {}});
    EXPECT_EQ(statistics.cantidadcategoria, (Counts{0, 0, 0, 0, 0, 3, 3, -3}));
    EXPECT_EQ(statistics.percentage(stats::restIndex), -100);

    engine::Database database = catalogue.open();
    EXPECT_FALSE(stats::countScope(database, {"U'", {}}, TotalLimit::None));
}

TEST(StatisticsCount, WindowStopsBehind32767Files) {
    const test::CatalogueFixture catalogue;
    catalogue.add(std::vector(32767, test::fileRow("U :", "C:\\m", "a.txt")));
    int steps = 0;
    engine::Database database = catalogue.open();
    ASSERT_TRUE(stats::countScope(database, {"U :", {}}, TotalLimit::Window, [&] { ++steps; }));
    EXPECT_EQ(steps, 8);

    catalogue.add(test::fileRow("U :", "C:\\m", "b.txt"));
    const auto refused = stats::countScope(database, {"U :", {}}, TotalLimit::Window, [&] { ++steps; });
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().number, stats::overflow);
    EXPECT_EQ(steps, 15);
    EXPECT_EQ(stats::countScope(database, {"U :", {}}, TotalLimit::None)->totalarchivos, 32768);
}

TEST(StatisticsCharts, ScalesAreRoundAndLabelsKeepApart) {
    const auto scale = [](std::vector<std::int64_t> values) {
        const auto made = stats::chartScale(std::move(values));
        return std::vector<double>{double(made.low), double(made.high), double(made.step)};
    };
    using Scale = std::vector<double>;
    EXPECT_EQ(scale({}), (Scale{0, 1, 1}));
    EXPECT_EQ(scale({3, -5}), (Scale{-8, 4, 2}));
    EXPECT_EQ(stats::spreadLabels({10, 50, 90}, 10, 0, 100), (std::vector<double>{10, 50, 90}));
    EXPECT_EQ(stats::spreadLabels({49, 50, 51}, 10, 0, 100), (std::vector<double>{40, 50, 60}));
    EXPECT_EQ(stats::spreadLabels({1, 2, 99}, 10, 0, 100), (std::vector<double>{5, 15, 95}));
}

TEST(StatsCommand, CountsUnitsAndFoldersWithoutALimit) {
    const test::CatalogueFixture catalogue;
    catalogue.add(std::vector(3, test::fileRow("Uno :", "C:\\m\\a", "x.mp3")));
    catalogue.add(test::fileRow("Uno :", "C:\\m\\it´s", "a.mov.zip"));
    catalogue.add(
        {test::folderRow("Uno :", "C:\\m\\it´s"), test::fileRow("Uno :", "C:\\m\\it´s too", "b.txt")});
    catalogue.add(std::vector(32768, test::fileRow("Dos :", "C:\\m", "y.txt")));
    const std::string& file = catalogue.path;
    const auto run = [](std::vector<std::string> words) {
        words.insert(words.begin(), "stats");
        return test::runCommand(words);
    };

    EXPECT_EQ(run({file, "Uno", "--json"}).output,
              R"({"audio":3,"text":1,"web":0,"pictures":0,"programs":0,"videos":1,"zipped":1,"rest":-1,)"
              R"("total":5})"
              "\n");
    EXPECT_TRUE(run({"--json", file, "Uno", "m/it's"})
                    .output.ends_with(R"("rest":0,"total":1})"
                                      "\n"));
    const std::string table = run({file, "Dos"}).output;
    EXPECT_TRUE(table.starts_with("Audio files:\t0\t0 %\nText files:\t32768\t100 %\n")) << table;
    EXPECT_TRUE(table.ends_with("Total:\t32768\n"));
    for (const char* unit : {"Tres", "Un'o') or ('"}) EXPECT_EQ(run({file, unit}).status, cli::NothingFound);
    EXPECT_EQ(run({file + ".gone", "Uno"}).status, cli::UnusableCatalogue);
}
