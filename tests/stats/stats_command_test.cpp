#include <gtest/gtest.h>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/output.h"
#include "stats/sample_catalogue.h"

namespace {

struct Outcome {
    int status;
    std::string output;
    bool operator==(const Outcome&) const = default;
};

Outcome run(std::vector<std::string> words) {
    words.insert(words.begin(), "stats");
    std::vector<const char*> pointers;
    for (const std::string& word : words) pointers.push_back(word.c_str());
    const auto arguments = cli::parse(pointers);
    if (!arguments) return {cli::WrongUsage, {}};
    testing::internal::CaptureStdout();
    const int status = arguments->command->run({*arguments, core::Language::English});
    EXPECT_TRUE(cli::finishOutput());
    return {status, testing::internal::GetCapturedStdout()};
}

}  // namespace

TEST(StatsCommand, CountsUnitsAndFoldersWithoutALimit) {
    test::SampleCatalogue catalogue;
    catalogue.addFiles("Uno :", "C:\\m\\a", "x.mp3", 3);
    catalogue.addFiles("Uno :", "C:\\m\\it´s", "a.mov.zip");
    catalogue.addFiles("Dos :", "C:\\m", "y.txt", 32768);
    const std::string file = catalogue.path();

    EXPECT_EQ(run({file, "Uno", "--json"}),
              (Outcome{cli::Done,
                       "{\"audio\":3,\"text\":0,\"web\":0,\"pictures\":0,\"programs\":0,\"videos\":1,"
                       "\"zipped\":1,\"rest\":-1,\"total\":4}\n"}));
    EXPECT_EQ(run({"--json", file, "Uno", "it's"}).output,
              "{\"audio\":0,\"text\":0,\"web\":0,\"pictures\":0,\"programs\":0,\"videos\":0,\"zipped\":1,"
              "\"rest\":0,"
              "\"total\":1}\n");
    const Outcome table = run({file, "Dos"});
    EXPECT_TRUE(table.output.starts_with("Audio files:\t0\t0 %\nText files:\t32768\t100 %\n"))
        << table.output;
    EXPECT_TRUE(table.output.ends_with("Total:\t32768\n"));
    EXPECT_EQ(run({file, "Tres"}), (Outcome{cli::NothingFound, {}}));
    EXPECT_EQ(run({file, "Un'o') or ('"}), (Outcome{cli::NothingFound, {}}));
    EXPECT_EQ(run({file + ".gone", "Uno"}).status, cli::UnusableCatalogue);
}
