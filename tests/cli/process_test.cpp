#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "platform/jet/database.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

struct Outcome {
    int status = -1;
    std::string out;
    std::string error;
};

// The program run in a folder of its own, as a script would.
class Program : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(work / "disc/Año/sub");
        test::writeFile(work / "disc/Año/uno.txt", std::string(2048, 'x'));
        test::writeFile(work / "disc/it's \"odd\", \xff", "x");
        ASSERT_EQ(run({"new", cat}).status, 0);
    }

    [[nodiscard]] Outcome run(std::vector<std::string> words) const {
        words.insert(words.begin(), ZARQUELIN_CLI);
        std::vector<char*> argv;
        for (std::string& word : words) argv.push_back(word.data());
        argv.push_back(nullptr);
        std::vector<std::string> settings{"PATH=/usr/bin:/bin", "LC_ALL=C.UTF-8", "HOME=" + work.path(),
                                          "XDG_CONFIG_HOME=" + work.path(),
                                          "ZARQUELIN_DRIVES=E=" + (work / "disc")};
        std::vector<char*> environment;
        for (std::string& setting : settings) environment.push_back(setting.data());
        environment.push_back(nullptr);

        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_addopen(&files, 1, (work / "out").c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0600);
        posix_spawn_file_actions_addopen(&files, 2, (work / "error").c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0600);
        pid_t child = 0;
        int status = -1;
        if (posix_spawn(&child, argv[0], &files, nullptr, argv.data(), environment.data()) == 0)
            waitpid(child, &status, 0);
        posix_spawn_file_actions_destroy(&files);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, test::readFile(work / "out"),
                test::readFile(work / "error")};
    }

    // The status, and that nothing but one line of complaint comes with a failure.
    [[nodiscard]] int statusOf(const std::vector<std::string>& words) const {
        const Outcome outcome = run(words);
        if (outcome.status != 0) {
            EXPECT_TRUE(outcome.error.starts_with("zarquelin-cli: ") || outcome.status == 1) << outcome.error;
            EXPECT_LE(std::ranges::count(outcome.error, '\n'), 1) << outcome.error;
        }
        return outcome.status;
    }

    test::TemporaryFolder work;
    const std::string cat = work / "cat.zrq";
    const std::string disc = work / "disc";
};

TEST_F(Program, ScansListsAndExports) {
    const Outcome scanned = run({"scan", cat, "Fotos", disc});
    EXPECT_EQ(scanned.status, 0);
    EXPECT_EQ(scanned.error, "");  // no progress where there is no terminal
    EXPECT_EQ(run({"add", cat, "Cds", "Pelis", "--kind", "video"}).status, 0);

    EXPECT_EQ(run({"units", cat, "--lang", "en"}).out,
              "Cds\tVideo unit\t0\t0\t0\nFotos\tFolders and files unit\t2\t2\t2\n");
    EXPECT_EQ(run({"units", cat, "--json"}).out,
              R"({"disco":"Cds :","tipo":"Unidad de video","folders":0,"files":0,"kb":0})"
              "\n"
              R"({"disco":"Fotos :","tipo":"Unidad de carpetas y archivos","folders":2,"files":2,"kb":2})"
              "\n");

    const std::string csv = run({"export", cat}).out;
    EXPECT_TRUE(
        csv.starts_with("numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco,comentario\r\n1,E:\\Año,"));
    EXPECT_NE(csv.find("\r\n4,E:\\,E:,\"it´s \"\"odd\"\", \uF0FF\",1,"), csv.npos) << csv;
    const std::string json = run({"export", cat, "--format", "json"}).out;
    EXPECT_EQ(std::ranges::count(json, '\n'), 5);
    EXPECT_NE(
        json.find(R"({"numero":2,"ruta":"E:\\Año\\sub","carpeta":"sub","archivo":null,"nivel":"2","fecha":)"),
        json.npos);
    EXPECT_NE(json.find(R"("ruta":"C:Pelis","carpeta":"Pelis","archivo":null,"nivel":"1")"), json.npos);
}

TEST_F(Program, RenamesDeletesAndCompacts) {
    ASSERT_EQ(run({"scan", cat, "Fotos", disc}).status, 0);
    ASSERT_EQ(run({"add", cat, "Cds", "x"}).status, 0);
    EXPECT_EQ(statusOf({"rename", cat, "Nada", "x"}), 1);
    EXPECT_EQ(statusOf({"rename", cat, "Fotos", "cDs"}), 2);
    EXPECT_EQ(statusOf({"rename", cat, "Fotos", "a'b"}), 2);
    EXPECT_EQ(statusOf({"rename", cat, "fotos", "FOTOS"}), 0);
    EXPECT_EQ(statusOf({"delete", cat, "it's"}), 1);
    EXPECT_EQ(statusOf({"delete", cat, "Cds"}), 0);
    EXPECT_EQ(statusOf({"compact", cat}), 0);
    EXPECT_EQ(statusOf({"repair", cat}), 0);
    EXPECT_EQ(run({"units", cat, "--lang=es"}).out, "FOTOS\tUnidad de carpetas y archivos\t2\t2\t2\n");
    EXPECT_FALSE(fs::exists(work / "compactada.zrq"));
}

TEST_F(Program, TellsWrongUsageByItsStatus) {
    EXPECT_EQ(statusOf({}), 2);
    EXPECT_EQ(statusOf({"burn", cat}), 2);
    EXPECT_EQ(statusOf({"scan", cat, "N"}), 2);
    EXPECT_EQ(statusOf({"scan", cat, "a'b", disc}), 2);
    EXPECT_EQ(statusOf({"scan", cat, "a\xff", disc}), 2);
    EXPECT_EQ(statusOf({"scan", cat, "", disc}), 2);
    EXPECT_EQ(statusOf({"scan", cat, "N", ""}), 2);
    EXPECT_EQ(statusOf({"scan", cat, "N", work / "missing"}), 2);
    EXPECT_EQ(statusOf({"add", cat, "N", "a*b"}), 2);
    EXPECT_EQ(statusOf({"add", cat, "N", "x", "--kind", "books"}), 2);
    EXPECT_EQ(statusOf({"export", cat, "--format", "xml"}), 2);
    EXPECT_EQ(statusOf({"units", cat}), 1);  // and none of these has left a unit
}

TEST_F(Program, TellsAnUnusableCatalogueByItsStatus) {
    EXPECT_EQ(statusOf({"units", work / "missing.zrq"}), 3);
    EXPECT_EQ(statusOf({"scan", disc, "N", disc}), 3);
    test::writeFile(work / "garbage.zrq", std::string(10'000, 'g'));
    EXPECT_EQ(statusOf({"units", work / "garbage.zrq"}), 3);
    EXPECT_EQ(statusOf({"scan", work / "garbage.zrq", "N", disc}), 3);
    EXPECT_EQ(test::readFile(work / "garbage.zrq"), std::string(10'000, 'g'));

    ASSERT_EQ(run({"add", cat, "Cds", "x"}).status, 0);
    EXPECT_EQ(statusOf({"new", cat}), 3);  // never over an existing catalogue
    EXPECT_EQ(run({"units", cat}).out.substr(0, 4), "Cds\t");
    EXPECT_EQ(statusOf({"scan", cat, "cds", disc}), 2);

    auto database = jet::OpenDatabase(cat).value();
    jet::Transaction held(database);
    ASSERT_TRUE(held.begin());
    EXPECT_EQ(statusOf({"scan", cat, "Locked", disc}), 3);
}

}  // namespace
