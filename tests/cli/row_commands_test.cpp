#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "support/catalogue_fixture.h"
#include "support/run_command.h"

namespace {

namespace fs = std::filesystem;

using test::Outcome;

// A catalogue of a disc that is in another drive now than the one it was scanned in.
class RowCommands : public testing::Test {
  protected:
    RowCommands() {
        catalogue.add({test::folderRow("Fotos :", "E:\\a"), test::fileRow("Fotos :", "E:\\a", "it´s.txt"),
                       test::fileRow("Fotos :", "E:\\a", "a.txt"), test::fileRow("Fotos :", "E:\\a", "A.TXT"),
                       test::fileRow("Fotos :", "E:\\", "root.txt"),
                       test::unitRow("Fotos :", "Pelis", "Unidad de video")});
        fs::create_directories(folder / "dvd/a");
        fs::create_directory(target);
        test::writeFile(folder / "dvd/a/it's.txt", "it's");
        test::writeFile(folder / "dvd/root.txt", "root");
        ::setenv("ZARQUELIN_DRIVES", ("G=" + (folder / "dvd") + ",optical").c_str(), 1);
    }
    ~RowCommands() override { ::unsetenv("ZARQUELIN_DRIVES"); }

    Outcome run(std::vector<std::string> words) const {
        words.insert(words.begin() + 1, catalogue.path);
        return test::runCommand(words);
    }

    test::CatalogueFixture catalogue;
    test::TemporaryFolder folder;
    const std::string target = folder / "target";
};

TEST_F(RowCommands, NoteIsWrittenPrintedAndRemoved) {
    const auto note = [this](const std::vector<std::string>& words) {
        std::vector<std::string> all{"note", "Fotos"};
        all.insert(all.end(), words.begin(), words.end());
        return run(all);
    };
    const std::string onDisk = "E:\\a\\it's.txt", asListed = "E:\\a\\it´s.txt";
    EXPECT_EQ(note({onDisk, "línea\nother"}).status, cli::Done);
    EXPECT_TRUE(note({onDisk, "--json"}).output.contains("\"comentario\":\"línea\\nother\""));
    for (const char* refused : {"x', disco='y", "\xff"})
        EXPECT_EQ(note({onDisk, refused}).status, cli::WrongUsage);
    EXPECT_EQ(note({asListed}).output, "línea\nother\n");
    EXPECT_EQ(note({onDisk, ""}).status, cli::Done);
    EXPECT_EQ(note({onDisk}).status, cli::NothingFound);

    EXPECT_EQ(note({"Pelis", "of a unit"}).status, cli::Done);
    EXPECT_EQ(note({"C:Pelis"}).output, "of a unit\n");
    EXPECT_EQ(note({"E:\\root.txt", "of the root\x1b"}).status, cli::Done);
    EXPECT_EQ(note({"E:\\\\root.txt"}).output, "of the root\\x1b\n");
    fs::create_directory_symlink(folder / "dvd", folder / "link");
    EXPECT_EQ(note({folder / "link/root.txt"}).output, "of the root\\x1b\n");
    EXPECT_EQ(note({"a", "of the folder"}).status, cli::Done);
    EXPECT_EQ(note({"E:\\a"}).output, "of the folder\n");
    EXPECT_EQ(note({"a/it's.txt"}).status, cli::NothingFound) << "the folder's note is not its files'";
    EXPECT_EQ(note({"a/A.TXT", "of one alone"}).status, cli::Done);
    EXPECT_EQ(note({"a/a.txt"}).status, cli::NothingFound) << "a row that differs in case";
    const Outcome several = note({"a/a.TXT", "n"});
    EXPECT_EQ(several.status, cli::WrongUsage);
    EXPECT_TRUE(several.errors.contains("E:\\a\\A.TXT\n") && several.errors.contains("E:\\a\\a.txt\n"));
    for (const char* path : {"E:\\a\\a", "E:\\a\\gone", "", "\\"})
        EXPECT_EQ(note({path, "n"}).status, cli::NothingFound) << path;
    EXPECT_EQ(run({"note", "Other", "E:\\root.txt", "n"}).status, cli::NothingFound);
}

TEST_F(RowCommands, ListShowsWhatAClickOnTheNodeDoes) {
    const auto folder = [](const char* ruta) { return test::folderRow("Zoo :", ruta); };
    const auto file = [](const char* ruta, const char* name) { return test::fileRow("Zoo :", ruta, name); };
    catalogue.add({folder("E:\\zoo"), folder("E:\\zoo\\Año"), file("E:\\zoo\\Año", "b.txt"),
                   file("E:\\zoo", "a.txt"), folder("E:\\Fotos :"), file("E:\\Fotos :", "in.txt"),
                   folder("E:\\arte"), file("E:\\", "root.txt")});
    const auto listed = [this](const std::vector<std::string>& words) {
        std::istringstream lines(run(words).output);
        std::string names;
        for (std::string line; std::getline(lines, line);) names += line.substr(0, line.find('\t')) + '|';
        return names;
    };
    EXPECT_EQ(listed({"list", "Zoo"}), "arte|Fotos :|zoo|root.txt|");
    EXPECT_EQ(listed({"list", "zoo", "zoo"}), "Año|a.txt|");
    EXPECT_EQ(listed({"list", "Zoo", "\\ZOO\\aÑo\\"}), "b.txt|") << "spelled otherwise than in the catalogue";
    EXPECT_EQ(listed({"list", "Zoo", "Fotos :"}), "in.txt|") << "not what lies in the unit of that name";
    catalogue.add(test::fileRow("ZOO :", "E:\\", "a.txt"));
    EXPECT_EQ(run({"delete", "Zoo"}).status, cli::WrongUsage) << "the other unit would go with it";
    EXPECT_TRUE(run({"list", "Zoo", "zoo/Año", "--json"})
                    .output.starts_with(R"({"numero":9,"ruta":"E:\\zoo\\Año","carpeta":"Año",)"));
    for (const char* path : {"Año", "arte\\none", "zoo/a.txt", "x'; delete * from datos"}) {
        const Outcome missing = run({"list", "Zoo", path});
        EXPECT_EQ(missing.status, cli::NothingFound) << path;
        EXPECT_TRUE(missing.output.empty() && missing.errors.contains(path)) << missing.errors;
    }
    EXPECT_EQ(run({"update", "Zoo", "i"}).errors, "zarquelin-cli: i: is no folder\n");
}

TEST_F(RowCommands, CopyScansTheDrivesAndReportsWhatIsMissing) {
    EXPECT_EQ(run({"copy", "Fotos", "E:\\a\\it's.txt", "E:\\root.txt", target}).status, cli::Done);
    EXPECT_EQ(test::readFile(target + "/it's.txt") + test::readFile(target + "/root.txt"), "it'sroot");

    fs::remove(folder / "dvd/a/it's.txt");
    fs::remove(target + "/root.txt");
    const Outcome partly = run({"copy", "Fotos", "E:\\a\\it´s.txt", "E:\\a\\a", "E:\\root.txt", target});
    EXPECT_EQ(partly.status, cli::NothingFound);
    EXPECT_TRUE(partly.errors.contains("E:\\a\\it´s.txt: is found in no drive")) << partly.errors;
    EXPECT_TRUE(fs::exists(target + "/root.txt"));

    EXPECT_EQ(run({"copy", "Fotos", "E:\\root.txt", target + "/gone"}).status, cli::WrongUsage);
    EXPECT_EQ(run({"copy", "Fotos", "E:\\root.txt"}).status, cli::WrongUsage);
    fs::remove(catalogue.path);
    EXPECT_EQ(run({"copy", "Fotos", "E:\\root.txt", target}).status, cli::UnusableCatalogue);
}

TEST_F(RowCommands, CopyTakesFoldersWithTheirStructure) {
    const std::string disc = folder / "dvd";
    test::writeFile(disc + "/a/it´s.txt", "it´s");
    test::writeFile(disc + "/a/a.txt", "lower");
    fs::create_directories(disc + "/a/it's \xff/Ñ´");
    test::writeFile(disc + "/a/it's \xff/deep", "deep");
    catalogue.add(
        {test::fileRow("Fotos :", "E:\\a", "it´s.txt"), test::folderRow("Fotos :", "E:\\a\\it´s \uF0FF"),
         test::folderRow("Fotos :", "E:\\a\\it´s \uF0FF\\Ñ´"),
         test::fileRow("Fotos :", "E:\\a\\it´s \uF0FF", "deep"), test::fileRow("Fotos :", "E:\\ab", "no"),
         test::fileRow("Fotos :", "E:\\a\\..", "root.txt")});
    test::writeFile(target + "/root.txt", "mine");
    EXPECT_EQ(run({"stats", "Fotos", "a", "--json"}).output.substr(0, 20), "{\"audio\":0,\"text\":5,")
        << "not of ab";
    ::setenv("ZARQUELIN_DRIVES", ("E=" + disc).c_str(), 1);
    EXPECT_EQ(run({"list", "Fotos", "a/it's \xff", "-0"}).output,
              disc + "/a/it's \xff/Ñ´" + '\0' + disc + "/a/it's \xff/deep" + '\0');
    ::setenv("ZARQUELIN_DRIVES", ("G=" + disc + ",optical").c_str(), 1);

    EXPECT_EQ(run({"copy", "Fotos", "a", target}).status, cli::NothingFound) << "a folder needs --recursive";
    const Outcome copied = run({"copy", "--recursive", "--no-clobber", "Fotos", "a", "root.txt", target});
    EXPECT_EQ(copied.status, cli::NothingFound);
    EXPECT_EQ(copied.errors,
              "zarquelin-cli: E:\\a\\A.TXT: is found in no drive\n"
              "zarquelin-cli: E:\\a\\..\\root.txt: is found in no drive\n");
    EXPECT_EQ(test::readFile(target + "/a/it's.txt") + test::readFile(target + "/a/it´s.txt"), "it'sit´s");
    EXPECT_EQ(test::readFile(target + "/a/it's \xff/deep") + test::readFile(target + "/root.txt"),
              "deepmine");
    EXPECT_TRUE(fs::is_directory(target + "/a/it's \xff/Ñ´"));
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(target), {}), 8);

    EXPECT_EQ(run({"copy", "Fotos", "a/it´s.txt", target}).status, cli::Done);
    EXPECT_EQ(test::readFile(target + "/it´s.txt"), "it´s") << "the spelling that was typed";
    fs::create_directory(disc + "/b");
    test::writeFile(disc + "/b/a.txt", "other");
    catalogue.add({test::folderRow("Fotos :", "E:\\b"), test::fileRow("Fotos :", "E:\\b", "a.txt")});
    fs::create_directory_symlink("a", target + "/b");  // two names of one place, as where case counts nothing
    for (const char* recursive : {"--no-clobber", "--recursive"}) {
        fs::remove(target + "/a/a.txt");
        const Outcome twice = run({"copy", "--recursive", recursive, "Fotos", "a/a.txt", "a", "b", target});
        EXPECT_TRUE(twice.errors.contains("/b/a.txt: another file of this name was just copied"))
            << recursive;
        EXPECT_EQ(test::readFile(target + "/a/a.txt") + test::readFile(target + "/a.txt"), "lowerlower")
            << "no copy replaces another of the same run";
    }
}

}  // namespace
