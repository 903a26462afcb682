#include <gtest/gtest.h>

#include "search/sample_catalogue.h"
#include "support/run_command.h"

namespace {

test::Outcome run(std::vector<std::string> words) {
    words.insert(words.begin(), "search");
    return test::runCommand(words);
}

TEST(SearchCommand, FindsWhatTheWindowFinds) {
    const SampleCatalogue sample;
    EXPECT_EQ(run({sample.path, "foto"}).output,
              "Fotos\tE:\\fotos\t\nFotos\tE:\\fotos\\foto1.jpg\t100\n"
              "Fotos\tE:\\fotos\\foto2.JPG\t2000\n");
    EXPECT_EQ(run({sample.path, "a", "--type", "audio", "--note", "jazz", "--unit", "Discos"}).output,
              "Discos\tE:\\sonidos\\a.mid\t10\n");
    EXPECT_EQ(run({sample.path, "*", "--from", "2003-05-31", "--to", "2003-05-31", "--min-kb", "-10",
                   "--max-kb", "2000", "--type", "picture"})
                  .output,
              "Fotos\tE:\\fotos\\foto2.JPG\t2000\n");
    const test::Outcome json = run({sample.path, "foto1", "--json"});
    EXPECT_TRUE(json.output.starts_with("{\"numero\":2,\"ruta\":\"E:\\\\fotos\",")) << json.output;
    EXPECT_EQ(json.status, cli::Done);
    const test::Outcome nothing = run({sample.path, "nowhere"});
    EXPECT_EQ(nothing.status, cli::NothingFound);
    EXPECT_EQ(nothing.output + nothing.errors, "");
    EXPECT_EQ(run({"/no/such.zrq", "x"}).status, cli::UnusableCatalogue);
}

TEST(SearchCommand, ExplainNeedsNoCatalogue) {
    const test::Outcome answer = run({"/no/such.zrq", "x", "--explain"});
    EXPECT_EQ(answer.status, cli::Done);
    EXPECT_EQ(answer.output,
              "select * from datos where carpeta  Like ('*x*') and tipo <>('archivo') order by carpeta\n"
              "select * from datos where archivo  Like ('*x*') order by archivo\n");
}

TEST(SearchCommand, RefusesWhatCouldNotBeAsked) {
    const std::vector<std::string> wrong[] = {
        {"c", ""},
        {"c", "it's"},
        {"c", "x", "--note", "\""},
        {"c", "x", "--note", ""},
        {"c", "x", "--unit", "a'b"},
        {"c", "x", "--type", "all"},
        {"c", "x", "--from", "2003-01-01"},
        {"c", "x", "--from", "2003-02-30", "--to", "2003-03-01"},
        {"c", "x", "--from", "2003-2-3", "--to", "2003-03-01"},
        {"c", "x", "--max-kb", "5"},
        {"c", "x", "--min-kb", "a", "--max-kb", "5"},
        {"c", "x", "--min-kb", "", "--max-kb", "5"},
    };
    for (const auto& words : wrong) EXPECT_EQ(run(words).status, cli::WrongUsage) << words.back();
}

}  // namespace
