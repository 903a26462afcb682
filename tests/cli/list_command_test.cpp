#include <gtest/gtest.h>

#include "support/catalogue_fixture.h"
#include "support/run_command.h"

namespace {

using Lines = std::vector<std::string>;

class List : public testing::Test {
  protected:
    List() {
        const auto folder = [](const char* ruta) { return test::folderRow("Fotos :", ruta); };
        const auto file = [](const char* ruta, const char* name) {
            return test::fileRow("Fotos :", ruta, name);
        };
        catalogue.add({folder("E:\\zoo"), folder("E:\\zoo\\Año"), file("E:\\zoo\\Año", "b.txt"),
                       file("E:\\zoo", "a.txt"), folder("E:\\Cds :"), file("E:\\Cds :", "in.txt"),
                       folder("E:\\arte"), folder("E:\\arte\\sub"), file("E:\\arte\\sub", "c.txt"),
                       file("E:\\", "root.txt"), test::unitRow("Cds :", "pelis", "Unidad de video")});
    }

    test::Outcome run(std::vector<std::string> words) const {
        words.insert(words.begin(), {"list", catalogue.path});
        return test::runCommand(words);
    }
    // The first field of every line.
    [[nodiscard]] Lines names(const std::vector<std::string>& words) const {
        const test::Outcome listed = run(words);
        EXPECT_EQ(listed.status, cli::Done);
        Lines result;
        for (std::size_t at = 0; at < listed.output.size(); at = listed.output.find('\n', at) + 1)
            result.push_back(listed.output.substr(at, listed.output.find('\t', at) - at));
        return result;
    }

    test::CatalogueFixture catalogue;
};

TEST_F(List, ShowsWhatAClickOnTheNodeDoes) {
    EXPECT_EQ(names({"Fotos"}), (Lines{"arte", "Cds :", "zoo", "root.txt"}));
    EXPECT_EQ(names({"Fotos", "zoo"}), (Lines{"Año", "a.txt"}));
    EXPECT_EQ(names({"fotos", "\\ZOO\\aÑo\\"}), (Lines{"b.txt"}))
        << "spelled otherwise than in the catalogue";
    EXPECT_EQ(names({"Fotos", "Cds :"}), (Lines{"in.txt"})) << "not what lies in the unit of that name";
    EXPECT_EQ(names({"Fotos", "E:\\zoo\\Año"}), (Lines{"b.txt"}));
    EXPECT_EQ(names({"Fotos", "arte\\sub"}), (Lines{"c.txt"}));
    const std::string json = run({"Fotos", "zoo\\Año", "--json"}).output;
    EXPECT_TRUE(json.starts_with(R"({"numero":3,"ruta":"E:\\zoo\\Año","carpeta":"Año","archivo":"b.txt",)"))
        << json;
}

TEST_F(List, TellsWhatIsNotThere) {
    EXPECT_NE(run({"Fotos", "arte\\sub\\none"}).errors.find("arte\\sub\\none"), std::string::npos);
    const std::vector<std::string> missing[]{{"Foto"},
                                             {"Fotos", "Año"},
                                             {"Fotos", "arte\\sub\\none"},
                                             {"Fotos", "zoo/a.txt"},
                                             {"Fo'; delete * from datos"}};
    for (const auto& words : missing) {
        const test::Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, cli::NothingFound) << words.back();
        EXPECT_EQ(outcome.output, "");
    }
    EXPECT_EQ(test::runCommand({"list", catalogue.path + ".gone", "Fotos"}).status, cli::UnusableCatalogue);
}

}  // namespace
