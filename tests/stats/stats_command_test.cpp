#include <gtest/gtest.h>

#include "support/catalogue_fixture.h"
#include "support/run_command.h"

namespace {

test::Outcome run(std::vector<std::string> words) {
    words.insert(words.begin(), "stats");
    return test::runCommand(words);
}

}  // namespace

TEST(StatsCommand, CountsUnitsAndFoldersWithoutALimit) {
    const test::CatalogueFixture catalogue;
    catalogue.add(std::vector(3, test::fileRow("Uno :", "C:\\m\\a", "x.mp3")));
    catalogue.add(test::fileRow("Uno :", "C:\\m\\it´s", "a.mov.zip"));
    catalogue.add(
        {test::folderRow("Uno :", "C:\\m\\it´s"), test::fileRow("Uno :", "C:\\m\\it´s too", "b.txt")});
    catalogue.add(std::vector(32768, test::fileRow("Dos :", "C:\\m", "y.txt")));
    const std::string& file = catalogue.path;

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
    for (const char* unit : {"Tres", "Un'o') or ('"}) {
        EXPECT_EQ(run({file, unit}).status, cli::NothingFound);
    }
    EXPECT_EQ(run({file + ".gone", "Uno"}).status, cli::UnusableCatalogue);
}
