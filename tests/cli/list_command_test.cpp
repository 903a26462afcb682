#include <gtest/gtest.h>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/output.h"
#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "platform/jet/database.h"
#include "platform/jet/maintenance.h"
#include "support/temporary_folder.h"

namespace {

using Lines = std::vector<std::string>;

class List : public testing::Test {
  protected:
    List() {
        jet::CreateDatabase(catalogue).value();
        add("Fotos :", "E:\\zoo", "zoo", "", "1");
        add("Fotos :", "E:\\zoo\\Año", "Año", "", "2");
        add("Fotos :", "E:\\zoo\\Año", "Año", "b.txt", "3");
        add("Fotos :", "E:\\zoo", "zoo", "a.txt", "2");
        add("Fotos :", "E:\\Cds :", "Cds :", "", "1");
        add("Fotos :", "E:\\arte", "arte", "", "1");
        add("Fotos :", "E:\\arte\\sub", "sub", "", "2");
        add("Fotos :", "E:\\arte\\sub", "sub", "c.txt", "3");
        add("Fotos :", "E:\\", "E:", "root.txt", "1");
        add("Cds :", "C:pelis", "pelis", "", "1", "Unidad de video");
    }

    void add(const char* disco, const char* ruta, const char* carpeta, const char* archivo, const char* nivel,
             std::string_view tipo = {}) {
        core::CatalogRow row;
        row.disco = disco;
        row.ruta = ruta;
        row.carpeta = carpeta;
        row.nivel = nivel;
        row.tipo = tipo.empty() ? (*archivo ? core::fileTipo : core::folderTipo) : tipo;
        if (*archivo) row.archivo = archivo;
        auto database = jet::OpenDatabase(catalogue).value();
        ASSERT_TRUE(database.Execute(*archivo ? core::insertFile(row) : core::insertFolder(row)));
    }

    int run(std::vector<const char*> words) {
        words.insert(words.begin(), {"list", catalogue.c_str()});
        const auto arguments = cli::parse(words).value();
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = arguments.command->run({arguments, core::Language::English});
        EXPECT_TRUE(cli::finishOutput());
        output = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
        return status;
    }
    // The first field of every line.
    [[nodiscard]] Lines names() const {
        Lines result;
        for (std::size_t at = 0; at < output.size(); at = output.find('\n', at) + 1)
            result.push_back(output.substr(at, output.find('\t', at) - at));
        return result;
    }

    test::TemporaryFolder folder;
    std::string catalogue = folder / "test.zrq";
    std::string output, errors;
};

TEST_F(List, ShowsWhatAClickOnTheNodeDoes) {
    EXPECT_EQ(run({"Fotos"}), cli::Done);
    EXPECT_EQ(names(), (Lines{"arte", "Cds :", "zoo", "root.txt"}));
    EXPECT_EQ(run({"Fotos", "zoo"}), cli::Done);
    EXPECT_EQ(names(), (Lines{"Año", "a.txt"}));
    EXPECT_EQ(run({"fotos", "\\ZOO\\aÑo\\"}), cli::Done) << "spelled otherwise than in the catalogue";
    EXPECT_EQ(names(), (Lines{"b.txt"}));
    EXPECT_EQ(run({"Fotos", "Cds :"}), cli::Done) << "a folder with the name of a unit counts as the unit";
    EXPECT_EQ(names(), (Lines{"pelis"}));

    EXPECT_EQ(run({"Fotos", "arte\\sub"}), cli::Done);
    EXPECT_EQ(names(), (Lines{"c.txt"}));
    EXPECT_EQ(run({"Fotos", "zoo\\Año", "--json"}), cli::Done);
    EXPECT_TRUE(output.starts_with(R"({"numero":)") && output.ends_with("}\n")) << output;
    EXPECT_NE(output.find(R"("ruta":"E:\\zoo\\Año","carpeta":"Año","archivo":"b.txt","nivel":"3")"),
              output.npos);
}

TEST_F(List, TellsWhatIsNotThere) {
    EXPECT_EQ(run({"Fotos", "arte\\sub\\none"}), cli::NothingFound);
    EXPECT_NE(errors.find("Fotos\\arte\\sub\\none"), errors.npos);
    EXPECT_EQ(run({"Foto"}), cli::NothingFound);
    EXPECT_EQ(run({"Fotos", "Año"}), cli::NothingFound) << "not at the top";
    EXPECT_EQ(run({"Fo'; delete * from datos"}), cli::NothingFound);
    EXPECT_EQ(output, "");
    catalogue = folder / "none.zrq";
    EXPECT_EQ(run({"Fotos"}), cli::UnusableCatalogue);
}

}  // namespace
