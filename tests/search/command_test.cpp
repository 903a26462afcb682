#include <gtest/gtest.h>

#include "search/sample_catalogue.h"
#include "support/parts.h"
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

TEST(SearchCommand, LooksForWhateverANameMayHold) {
    const test::CatalogueFixture catalogue;
    catalogue.add(
        {test::fileRow("Fotos :", "E:\\", "größe \uF0FF.txt"), test::fileRow("Fotos :", "E:\\", "it´s.txt")});
    EXPECT_EQ(run({catalogue.path, "GRÖSSE"}).status, cli::NothingFound);
    for (const char* text : {"GRÖßE", "\xff", "größe \uF0FF"})
        EXPECT_EQ(run({catalogue.path, text}).output, "Fotos\tE:\\größe \uF0FF.txt\t1\n") << text;
    EXPECT_EQ(run({catalogue.path, "it's", "--unit", "fotos"}).output, "Fotos\tE:\\it´s.txt\t1\n");
    for (const char* text : {"'); delete * from datos", "\""})
        EXPECT_EQ(run({catalogue.path, text}).status, cli::NothingFound) << text;
    EXPECT_EQ(catalogue.rows().size(), 2);
}

TEST(SearchCommand, GoesThroughSeveralCatalogues) {
    const test::CatalogueFixture one, two;
    one.add(test::fileRow("A :", "E:\\", "x1"));
    two.add({test::fileRow("B :", "E:\\", "x2"), test::fileRow("B :", "F:\\", "x3")});
    ::setenv("ZARQUELIN_DRIVES", "E=/media/disc", 1);
    EXPECT_EQ(run({one.path, two.path, "x"}).output,
              one.path + "\tA\tE:\\x1\t1\n" + two.path + "\tB\tE:\\x2\t1\n" + two.path + "\tB\tF:\\x3\t1\n");
    EXPECT_TRUE(run({one.path, two.path, "x1", "--json"}).output.starts_with("{\"catalogue\":\"" + one.path));
    EXPECT_EQ(run({one.path, two.path, "x1", "-0"}).output, std::string("/media/disc/x1\0", 15));
    const test::Outcome absent = run({two.path, "x", "-0"});
    EXPECT_EQ(absent.output, std::string("/media/disc/x2\0", 15));
    EXPECT_EQ(absent.status, cli::NothingFound) << "a row without a path is told";
    ::unsetenv("ZARQUELIN_DRIVES");

    EXPECT_EQ(run({one.path, two.path, "x", "--unit", "B"}).status, cli::Done);
    EXPECT_EQ(run({one.path, two.path, "x", "--unit", "C"}).status, cli::NothingFound);
    const test::Outcome partly = run({one.path, "/no/such.zrq", two.path, "x"});
    EXPECT_EQ(partly.status, cli::UnusableCatalogue);
    EXPECT_TRUE(partly.output.contains("x1") && partly.output.contains("x3"));
}

TEST(SearchCommand, ExplainNeedsNoCatalogue) {
    const test::Outcome answer = run({"/no/such.zrq", "x", "--explain"});
    EXPECT_EQ(answer.status, cli::Done);
    EXPECT_EQ(answer.output,
              "select * from datos where carpeta  Like ('*x*') and tipo <>('archivo') order by carpeta\n"
              "select * from datos where archivo  Like ('*x*') order by archivo\n");
}

TEST(SearchCommand, RefusesWhatCouldNotBeAsked) {
    for (const char* words :
         {"c", "c|", "c|x|--note|", "c|x|--type|all", "c|x|--from|2003-01-01", "c|x|--max-kb|5",
          "c|x|--from|2003-02-30|--to|2003-03-05", "c|x|--from|2003-2-3|--to|2003-03-01",
          "c|x|--from|2003-01-02|--to|2003-01-01", "c|x|--min-kb|a|--max-kb|5", "c|x|--min-kb||--max-kb|5",
          "c|x|--min-kb| 1|--max-kb|5", "c|x|--min-kb|1e3|--max-kb|5000", "c|x|--min-kb|6|--max-kb|5"})
        EXPECT_EQ(run(test::parts(words)).status, cli::WrongUsage) << words;
}

}  // namespace
