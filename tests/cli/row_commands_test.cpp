#include <gtest/gtest.h>

#include <cstdlib>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/output.h"
#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "platform/jet/database.h"
#include "platform/jet/maintenance.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

struct Outcome {
    int status;
    std::string output;
    std::string errors;
};

// A catalogue of a disc that is in another drive now than the one it was scanned in.
class RowCommands : public testing::Test {
  protected:
    RowCommands() {
        jet::CreateDatabase(catalogue).value();
        auto database = jet::OpenDatabase(catalogue).value();
        core::CatalogRow row;
        row.nivel = "1";
        row.disco = "Fotos :";
        const auto add = [&](const char* ruta, const char* carpeta, const char* archivo,
                             std::string_view tipo) {
            row.ruta = ruta;
            row.carpeta = carpeta;
            row.tipo = tipo;
            if (*archivo) row.archivo = archivo;
            ASSERT_TRUE(database.Execute(*archivo ? core::insertFile(row) : core::insertFolder(row)));
            row.archivo.reset();
        };
        add("E:\\a", "a", "", core::folderTipo);
        add("E:\\a", "a", "it´s.txt", core::fileTipo);
        add("E:\\", "E:", "root.txt", core::fileTipo);
        add("C:Pelis", "Pelis", "", "Unidad de video");

        fs::create_directories(folder / "dvd/a");
        fs::create_directory(folder / "target");
        test::writeFile(folder / "dvd/a/it's.txt", "it's");
        test::writeFile(folder / "dvd/root.txt", "root");
        ::setenv("ZARQUELIN_DRIVES", ("G=" + (folder / "dvd") + ",optical").c_str(), 1);
    }
    ~RowCommands() override { ::unsetenv("ZARQUELIN_DRIVES"); }

    Outcome run(std::vector<std::string> words) const {
        words.insert(words.begin() + 1, catalogue);
        std::vector<const char*> pointers;
        for (const std::string& word : words) pointers.push_back(word.c_str());
        const auto arguments = cli::parse(pointers);
        if (!arguments) return {cli::WrongUsage, {}, {}};
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = arguments->command->run({*arguments, core::Language::English});
        EXPECT_TRUE(cli::finishOutput());
        const std::string output = testing::internal::GetCapturedStdout();
        return {status, output, testing::internal::GetCapturedStderr()};
    }

    test::TemporaryFolder folder;
    std::string catalogue = folder / "test.zrq";
};

TEST_F(RowCommands, NoteIsWrittenPrintedAndRemoved) {
    // The path may be spelled as on the disk or as listed.
    EXPECT_EQ(run({"note", "Fotos", "E:\\a\\it's.txt", "línea\nother"}).status, cli::Done);
    const Outcome read = run({"note", "Fotos", "E:\\a\\it´s.txt"});
    EXPECT_EQ(read.status, cli::Done);
    EXPECT_EQ(read.output, "línea\nother\n");
    EXPECT_NE(
        run({"note", "Fotos", "E:\\a\\it's.txt", "--json"}).output.find("\"comentario\":\"línea\\nother\""),
        std::string::npos);
    EXPECT_EQ(run({"note", "Fotos", "E:\\a\\it's.txt", "x', disco='y"}).status, cli::WrongUsage);
    EXPECT_EQ(run({"note", "Fotos", "E:\\a\\it's.txt", "\xff"}).status, cli::WrongUsage);
    EXPECT_EQ(run({"note", "Fotos", "E:\\a\\it's.txt"}).output, "línea\nother\n");
    EXPECT_EQ(run({"note", "Fotos", "E:\\a\\it's.txt", ""}).status, cli::Done);
    EXPECT_EQ(run({"note", "Fotos", "E:\\a\\it's.txt"}).status, cli::NothingFound);

    EXPECT_EQ(run({"note", "Fotos", "C:Pelis\\Pelis", "of a unit"}).status, cli::Done);
    EXPECT_EQ(run({"note", "Fotos", "E:\\root.txt", "of the root"}).status, cli::Done);
    EXPECT_EQ(run({"note", "Fotos", "E:\\\\root.txt"}).output, "of the root\n");
    for (const char* path : {"E:\\a\\a", "E:\\a\\gone", "root.txt", "", "\\"})
        EXPECT_EQ(run({"note", "Fotos", path, "n"}).status, cli::NothingFound) << path;
    EXPECT_EQ(run({"note", "Other", "E:\\root.txt", "n"}).status, cli::NothingFound);
}

TEST_F(RowCommands, CopyScansTheDrivesAndReportsWhatIsMissing) {
    const std::string target = folder / "target";
    EXPECT_EQ(run({"copy", "Fotos", "E:\\a\\it's.txt", "E:\\root.txt", target}).status, cli::Done);
    EXPECT_EQ(test::readFile(target + "/it's.txt") + test::readFile(target + "/root.txt"), "it'sroot");

    fs::remove(folder / "dvd/a/it's.txt");
    fs::remove(target + "/root.txt");
    const Outcome partly = run({"copy", "Fotos", "E:\\a\\it´s.txt", "E:\\a\\a", "E:\\root.txt", target});
    EXPECT_EQ(partly.status, cli::NothingFound);
    EXPECT_NE(partly.errors.find("This file can´t be find as E:\\a\\it´s.txt"), std::string::npos)
        << partly.errors;
    EXPECT_TRUE(fs::exists(target + "/root.txt"));

    EXPECT_EQ(run({"copy", "Fotos", "E:\\root.txt", target + "/gone"}).status, cli::WrongUsage);
    EXPECT_EQ(run({"copy", "Fotos", "E:\\root.txt"}).status, cli::WrongUsage);
    fs::remove(catalogue);
    EXPECT_EQ(run({"copy", "Fotos", "E:\\root.txt", target}).status, cli::UnusableCatalogue);
}

}  // namespace
