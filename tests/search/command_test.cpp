#include <gtest/gtest.h>

#include "cli/arguments.h"
#include "cli/command.h"
#include "search/sample_catalogue.h"

namespace {

struct Answer {
    int status;
    std::string output;
    bool operator==(const Answer&) const = default;
};

Answer run(std::vector<const char*> words) {
    words.insert(words.begin(), "search");
    const auto arguments = cli::parse(words);
    if (!arguments) return {cli::WrongUsage, {}};
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = arguments->command->run({*arguments, core::Language::English});
    const bool complained = !testing::internal::GetCapturedStderr().empty();
    EXPECT_EQ(complained, status > cli::NothingFound) << words.back();
    return {status, testing::internal::GetCapturedStdout()};
}

TEST(SearchCommand, FindsWhatTheWindowFinds) {
    const SampleCatalogue sample;
    const std::string path = sample.path();
    const char* catalogue = path.c_str();
    EXPECT_EQ(run({catalogue, "foto"}), (Answer{cli::Done,
                                                "Fotos\tE:\\fotos\t\nFotos\tE:\\fotos\\foto1.jpg\t100\n"
                                                "Fotos\tE:\\fotos\\foto2.JPG\t2000\n"}));
    EXPECT_EQ(run({catalogue, "a", "--type", "audio", "--note", "jazz", "--unit", "Discos"}),
              (Answer{cli::Done, "Discos\tE:\\sonidos\\a.mid\t10\n"}));
    EXPECT_EQ(run({catalogue, "*", "--from", "2003-05-31", "--to", "2003-05-31", "--min-kb", "-10",
                   "--max-kb", "2000", "--type", "picture"}),
              (Answer{cli::Done, "Fotos\tE:\\fotos\\foto2.JPG\t2000\n"}));
    EXPECT_EQ(run({catalogue, "foto1", "--json"}).output,
              "{\"numero\":2,\"ruta\":\"E:\\\\fotos\",\"carpeta\":\"fotos\",\"archivo\":\"foto1.jpg\","
              "\"nivel\":\"2\","
              "\"fecha\":37742,\"largo\":100,\"tipo\":\"Archivo\",\"disco\":\"Fotos "
              ":\",\"comentario\":\"en la playa\"}\n");
    EXPECT_EQ(run({catalogue, "nowhere"}), (Answer{cli::NothingFound, ""}));
    EXPECT_EQ(run({"/no/such.zrq", "x"}).status, cli::UnusableCatalogue);
}

TEST(SearchCommand, ExplainNeedsNoCatalogue) {
    const Answer answer = run({"/no/such.zrq", "x", "--explain"});
    EXPECT_EQ(answer.status, cli::Done);
    EXPECT_EQ(answer.output,
              "select * from datos where carpeta  Like ('*x*') and tipo <>('archivo') order by carpeta\n"
              "select * from datos where archivo  Like ('*x*') order by archivo\n");
}

TEST(SearchCommand, RefusesWhatCouldNotBeAsked) {
    const std::vector<const char*> wrong[] = {
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
