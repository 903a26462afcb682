#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "core/text.h"
#include "engine/database.h"
#include "reliability/program.h"
#include "support/catalogue_fixture.h"
#include "support/parts.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using test::cliTells, test::Told;

// The program run in a folder of its own, as a script would.
class Program : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(work / "disc/Año/sub");
        test::writeFile(work / "disc/Año/uno.txt", std::string(2048, 'x'));
        test::writeFile(work / "disc/it's \"odd\", \xff", "x");
        for (const char* home : {"HOME", "XDG_CONFIG_HOME"}) ::setenv(home, work.path().c_str(), 1);
        ::setenv("ZARQUELIN_DRIVES", ("E=" + disc).c_str(), 1);
        ASSERT_EQ(cliTells({"new", cat}).status, 0);
    }

    // The status, and that nothing but one line of complaint comes with a failure.
    [[nodiscard]] int statusOf(const std::vector<std::string>& words) const {
        const Told outcome = cliTells(words);
        if (outcome.status != 0) {
            EXPECT_TRUE(outcome.text.starts_with("zarquelin-cli: ") || outcome.status == 1) << outcome.text;
            EXPECT_LE(std::ranges::count(outcome.text, '\n'), 1) << outcome.text;
        }
        return outcome.status;
    }

    test::TemporaryFolder work;
    const std::string cat = work / "cat.zrq";
    const std::string disc = work / "disc";
};

TEST_F(Program, ScansListsAndExports) {
    const Told scanned = cliTells({"scan", cat, "Fotos", disc});
    EXPECT_EQ(scanned.status, 0);
    EXPECT_EQ(scanned.text, "");  // no progress where there is no terminal
    EXPECT_EQ(cliTells({"add", cat, "Cds", "Pelis", "--kind", "video"}).status, 0);

    EXPECT_EQ(cliTells({"units", cat, "--lang", "en"}).text,
              "Cds\tVideo unit\t0\t0\t0\nFotos\tFolders and files unit\t2\t2\t2\n");
    EXPECT_EQ(cliTells({"units", cat, "--json"}).text,
              R"({"disco":"Cds :","tipo":"Unidad de video","folders":0,"files":0,"kb":0})"
              "\n"
              R"({"disco":"Fotos :","tipo":"Unidad de carpetas y archivos","folders":2,"files":2,"kb":2})"
              "\n");

    const std::string csv = cliTells({"export", cat}).text;
    EXPECT_TRUE(
        csv.starts_with("numero,ruta,carpeta,archivo,nivel,fecha,largo,tipo,disco,comentario\r\n1,E:\\Año,"));
    EXPECT_NE(csv.find("\r\n4,E:\\,E:,\"it´s \"\"odd\"\", \uF0FF\",1,"), csv.npos) << csv;
    const std::string json = cliTells({"export", cat, "--format", "json"}).text;
    EXPECT_EQ(std::ranges::count(json, '\n'), 5);
    EXPECT_NE(json.find(R"("ruta":"C:Pelis","carpeta":"Pelis","archivo":null,"nivel":"1")"), json.npos);
}

TEST_F(Program, LeavesOutWhatItIsToldToAndTellsOfTheRest) {
    fs::create_directories(work / "disc/1/2/3/4/5/6/7/8/9/10/11/12");
    test::writeFile(work / "disc/.hidden", "");
    EXPECT_EQ(cliTells({"scan", cat, "All", disc, "--lang", "en"}).text,
              "zarquelin-cli: left out: what is in 1 folder at the depth limit\n");
    EXPECT_TRUE(cliTells({"compare", cat, "All", "--lang", "en"}).text.ends_with("at the depth limit\n"));
    const Told some = cliTells({"scan", cat, "Some", disc, "--exclude", "a*", "--exclude=1", "--no-hidden"});
    EXPECT_EQ(some.status, 0);
    EXPECT_EQ(some.text, "");
    EXPECT_TRUE(
        cliTells({"units", cat, "--lang", "en"}).text.ends_with("\nSome\tFolders and files unit\t0\t1\t0\n"));
    EXPECT_EQ(statusOf({"scan", cat, "None", disc, "--exclude"}), 2);
}

TEST_F(Program, TellsWhatAnUpdateChanges) {
    ASSERT_EQ(cliTells({"scan", cat, "Fotos", disc}).status, 0);
    EXPECT_EQ(statusOf({"compare", cat, "Fotos"}), 0);
    fs::remove(work / "disc/it's \"odd\", \xff");
    test::writeFile(work / "disc/Año/uno.txt", "");
    test::writeFile(work / "disc/\x1b[31mred\n", "");
    const std::string told = "~ Año/uno.txt\n+ \\x1b[31mred\\n\n- it´s \"odd\", \uF0FF\n";
    const Told compared = cliTells({"compare", cat, "Fotos"});
    EXPECT_EQ(compared.status, 1);
    EXPECT_EQ(compared.text, told);
    const std::string json = cliTells({"compare", cat, "fotos", disc, "--json"}).text;
    EXPECT_TRUE(json.starts_with(R"({"change":"changed","numero":3,"ruta":"E:\\Año",)")) << json;
    const Told updated = cliTells({"update", cat, "Fotos"});
    EXPECT_EQ(updated.status, 0);
    EXPECT_EQ(updated.text, told);
    EXPECT_EQ(statusOf({"compare", cat, "Fotos"}), 0);
    EXPECT_EQ(cliTells({"compare", cat, "Fotos", "--exclude", "[ab]ño"}).text,
              "- Año\n- Año/sub\n- Año/uno.txt\n");
    EXPECT_EQ(statusOf({"update", cat, "Nada"}), 1);
    for (const char* elsewhere : {"missing", "."})
        EXPECT_EQ(statusOf({"update", cat, "Fotos", work / elsewhere}), 2);
    EXPECT_EQ(statusOf({"update", work / "missing.zrq", "Fotos"}), 3);
}

TEST_F(Program, MergesCataloguesThroughAFile) {
    ASSERT_EQ(cliTells({"scan", cat, "Fotos", disc}).status, 0);
    ASSERT_EQ(cliTells({"new", work / "all.zrq"}).status, 0);
    ASSERT_EQ(cliTells({"add", work / "all.zrq", "Cds", "x"}).status, 0);
    const std::string rows = cliTells({"export", cat}).text;
    test::writeFile(work / "rows.csv", rows);
    EXPECT_EQ(statusOf({"import", work / "all.zrq", work / "rows.csv"}), 0);
    EXPECT_EQ(std::ranges::count(cliTells({"export", work / "all.zrq"}).text, '\n'), 6);
    const Told again = cliTells({"import", work / "all.zrq", work / "rows.csv", "--lang", "en"});
    EXPECT_EQ(again.status, 2);
    EXPECT_TRUE(again.text.ends_with("rows.csv: line 2: there is such a unit already: Fotos :\n"))
        << again.text;
    EXPECT_EQ(statusOf({"import", cat, work / "missing"}), 2);
    EXPECT_EQ(statusOf({"import", cat, disc}), 2);
    EXPECT_EQ(statusOf({"import", cat, work / "rows.csv", "--format", "json"}), 2);
    EXPECT_EQ(statusOf({"import", work / "missing.zrq", work / "rows.csv"}), 3);
}

TEST_F(Program, FindsWhatIsThereTwice) {
    fs::create_directories(work / "disc/again");
    test::writeFile(work / "disc/again/UNO.txt", std::string(2048, 'y'));
    ASSERT_EQ(cliTells({"scan", cat, "Fotos", disc}).status, 0);
    EXPECT_EQ(cliTells({"duplicates", cat}).text,
              "2\tFotos\tE:\\again\\UNO.txt\n2\tFotos\tE:\\Año\\uno.txt\n\n");
    EXPECT_EQ(cliTells({"duplicates", cat, "--json", "--by", "name", "--unit", "fotos"}).text,
              R"({"archivo":"UNO.txt","largo":2,"copies":[)"
              R"({"disco":"Fotos :","ruta":"E:\\again","archivo":"UNO.txt"},)"
              R"({"disco":"Fotos :","ruta":"E:\\Año","archivo":"uno.txt"}]})"
              "\n");
    const std::string paths = disc + "/again/UNO.txt" + '\0' + disc + "/Año/uno.txt" + '\0';
    EXPECT_EQ(cliTells({"duplicates", cat, "-0"}).text, paths);
    EXPECT_EQ(statusOf({"duplicates", cat, "--min-kb", "3"}), 1);
    EXPECT_EQ(statusOf({"duplicates", cat, "--unit", "Nada"}), 1);
    for (const char* by : {"", "name,", "names", "name;size"})
        EXPECT_EQ(statusOf({"duplicates", cat, "--by", by}), 2) << by;
    EXPECT_EQ(statusOf({"duplicates", cat, "--min-kb", "-1"}), 2);
}

TEST_F(Program, ChecksAndBacksUp) {
    ASSERT_EQ(cliTells({"scan", cat, "Fotos", disc}).status, 0);
    EXPECT_EQ(cliTells({"check", cat, "--lang", "en"}).text, "sound; rows: 4\n");
    fs::create_directory(work / "safe");
    for (int time = 0; time < 2; ++time) EXPECT_EQ(statusOf({"backup", cat, work / "safe"}), 0);
    EXPECT_EQ(cliTells({"export", work / "safe/cat.zrq"}).text, cliTells({"export", cat}).text);
    const std::string photo = disc + "/Año/uno.txt", before = test::readFile(photo);
    EXPECT_EQ(statusOf({"backup", cat, photo}), 3);
    EXPECT_EQ(test::readFile(photo), before);
    EXPECT_EQ(statusOf({"backup", cat, cat}), 3);
    EXPECT_EQ(statusOf({"backup", work / "missing.zrq", work / "new.zrq"}), 3);
    EXPECT_FALSE(fs::exists(work / "new.zrq"));

    std::string bytes = test::readFile(cat);
    std::fill(bytes.begin() + 8192, bytes.end(), 'Z');
    test::writeFile(cat, bytes);
    EXPECT_EQ(cliTells({"check", cat}).status, 3);
    EXPECT_NE(cliTells({"check", cat, "--json"}).text.find(R"({"sound":false,"rows":0,"faults":[")"),
              std::string::npos);
    EXPECT_EQ(statusOf({"check", photo}), 3);
}

TEST_F(Program, RenamesDeletesAndCompacts) {
    ASSERT_EQ(cliTells({"scan", cat, "Fotos", disc}).status, 0);
    ASSERT_EQ(cliTells({"add", cat, "Cds", "x"}).status, 0);
    EXPECT_EQ(statusOf({"rename", cat, "Nada", "x"}), 1);
    EXPECT_EQ(statusOf({"rename", cat, "Fotos", "cDs"}), 2);
    EXPECT_EQ(statusOf({"rename", cat, "Fotos", "a'b"}), 2);
    EXPECT_EQ(statusOf({"rename", cat, "fotos", "FOTOS"}), 0);
    EXPECT_EQ(statusOf({"delete", cat, "it's"}), 1);
    EXPECT_EQ(statusOf({"delete", cat, "Cds"}), 0);
    EXPECT_EQ(statusOf({"compact", cat}), 0);
    EXPECT_EQ(statusOf({"repair", cat}), 0);
    EXPECT_EQ(cliTells({"units", cat, "--lang=es"}).text, "FOTOS\tUnidad de carpetas y archivos\t2\t2\t2\n");
    EXPECT_FALSE(fs::exists(work / "compactada.zrq"));
}

TEST_F(Program, SaysThatItWasInterrupted) {
    test::addRows(cat,
                  std::vector(2000, test::fileRow("Big :", "E:\\", "a name")));  // more than a pipe takes
    const std::string rows = cliTells({"export", cat}).text,
                      others = core::replaceAll(rows, "Big :", "New :");
    for (const int signal : {SIGINT, SIGTERM}) {
        const std::string pipe = work / std::to_string(signal);
        ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
        const int reader = ::open(pipe.c_str(), O_RDWR);
        const std::string line = "exec " ZARQUELIN_CLI " export '" + cat + "' --json > '" + pipe + "'";
        test::Program program({"/bin/sh", "-c", line}, {.output = work / "told"});
        pollfd output{reader, POLLIN, 0};
        ASSERT_EQ(::poll(&output, 1, 60'000), 1);
        program.send(signal);
        EXPECT_EQ(program.wait(), 128 + signal);
        EXPECT_EQ(test::readFile(work / "told"), "zarquelin-cli: interrupted\n");
        ::close(reader);
        // Work that ends between two rows, most of which were read when the pipe has taken all.
        test::Program import({ZARQUELIN_CLI, "import", cat, pipe});
        std::ofstream given(pipe);
        given << others << std::flush;
        import.send(signal);
        given.close();
        EXPECT_EQ(import.wait(), 128 + signal);
        // It reads on for a while after a first signal, and no longer after a second one.
        test::Program waiting({ZARQUELIN_CLI, "import", cat, pipe});
        const int held = ::open(pipe.c_str(), O_RDWR);
        int unread = static_cast<int>(::write(held, others.data(), 8000));
        while (unread > 0) ASSERT_EQ(::ioctl(held, FIONREAD, &unread), 0);
        while (waiting.isRunning()) waiting.send(signal);
        EXPECT_EQ(waiting.wait(), 128 + signal);
        ::close(held);
    }
    EXPECT_EQ(cliTells({"export", cat}).text, rows);

    const std::string pipe = work / std::to_string(SIGINT);
    const std::string line = "trap '' HUP; exec " ZARQUELIN_CLI " import '" + cat + "' '" + pipe + "'";
    test::Program kept({"/bin/sh", "-c", line});
    std::ofstream given(pipe);
    kept.send(SIGHUP);
    given << others;
    given.close();
    EXPECT_EQ(kept.wait(), 0) << "it was started to outlive its terminal";
}

TEST_F(Program, AnEmptyExportAndAFolderThatCannotBeReadHaveTheirStatus) {
    EXPECT_EQ(statusOf({"export", cat}), 1);
    EXPECT_EQ(cliTells({"export", cat, "--format", "json"}).text, "");
    fs::create_symlink("loop", work / "loop");
    for (const char* folder : {"loop", "disc/Año/uno.txt"})
        EXPECT_EQ(statusOf({"scan", cat, "Nada", work / folder}), 2) << folder;

    EXPECT_EQ(statusOf({"scan", cat, "Nada", work / "disc/Año/sub"}), 1) << "an empty drive, as it seems";
    fs::create_directory(work / "disc/closed");
    fs::permissions(work / "disc/closed", fs::perms::none);
    std::vector<std::string> scan{ZARQUELIN_CLI, "scan", cat, "Nada", work / "disc/closed"};
    const std::string asOthers[]{"/usr/bin/setpriv", "--bounding-set=-dac_override,-dac_read_search"};
    if (::geteuid() == 0) scan.insert(scan.begin(), std::begin(asOthers), std::end(asOthers));
    EXPECT_EQ(test::statusOf(scan, {.output = work / "told"}), 2) << test::readFile(work / "told");
    fs::permissions(work / "disc/closed", fs::perms::owner_all);  // so that it can be taken away
}

// What a program says to a terminal.
class Terminal {
  public:
    Terminal() { EXPECT_EQ(::grantpt(m_ours) | ::unlockpt(m_ours), 0); }
    ~Terminal() { ::close(m_ours); }

    [[nodiscard]] std::string name() const { return ::ptsname(m_ours); }
    // Reads on until it hears the text; false at the end.
    bool hears(const char* wanted) {
        char bytes[256];
        while (!told.contains(wanted)) {
            const ssize_t length = ::read(m_ours, bytes, sizeof bytes);
            if (length <= 0) return false;
            told.append(bytes, static_cast<std::size_t>(length));
        }
        return true;
    }

    std::string told;

  private:
    int m_ours = ::posix_openpt(O_RDWR | O_NOCTTY);
};

TEST_F(Program, TellsATerminalOfLongWork) {
    Terminal terminal;
    const std::string pipe = work / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    test::Program program({ZARQUELIN_CLI, "import", cat, pipe}, {.output = terminal.name()});
    ASSERT_TRUE(terminal.hears("\rzarquelin-cli import: 1 s\x1b[K"));
    std::ofstream(pipe) << cliTells({"export", cat}).text;
    EXPECT_EQ(program.wait(), 1);
    EXPECT_FALSE(terminal.hears("to the end"));
    EXPECT_TRUE(terminal.told.ends_with("\r\x1b[K")) << "the line stays";
}

TEST_F(Program, NothingOfACatalogueActsOnATerminal) {
    test::writeFile(work / "disc/Año/sub/\x1b[31mred\n\r", "");
    ASSERT_EQ(cliTells({"scan", cat, "Fotos", disc}).status, 0);
    using Words = std::vector<std::string>;
    for (const Words& words : {Words{"export", cat}, Words{"search", cat, "*", "-0"}}) {
        Terminal terminal;
        EXPECT_EQ(test::cliStatus(words, {.output = terminal.name()}), 0);
        EXPECT_FALSE(terminal.hears("to the end"));
        EXPECT_TRUE(terminal.told.contains("\\x1b[31mred")) << terminal.told;
        EXPECT_FALSE(terminal.told.contains('\x1b'));
    }
}

TEST_F(Program, GivesNobodyMoreThanTheMaskOfTheUser) {
    fs::permissions(work / "disc/Año/uno.txt", fs::perms::all);
    ASSERT_EQ(cliTells({"scan", cat, "Fotos", disc}).status, 0);
    const mode_t before = ::umask(077);
    const std::string made = work / "made.zrq", saved = work / "saved.zrq";
    EXPECT_EQ(cliTells({"new", made}).status, 0);
    EXPECT_EQ(cliTells({"backup", cat, saved}).status, 0);
    EXPECT_EQ(cliTells({"copy", cat, "Fotos", "Año/uno.txt", work.path()}).status, 0);
    ::umask(before);
    for (const std::string& file : {made, saved, std::string(work / "uno.txt")})
        EXPECT_EQ(fs::status(file).permissions() & fs::perms(077), fs::perms::none) << file;
}

TEST_F(Program, TellsWrongUsageByItsStatus) {
    EXPECT_EQ(statusOf({}), 2);
    for (const char* wrong : {"burn|CAT", "scan|CAT|N", "scan|CAT|a'b|DISC", "scan|CAT|a\xff|DISC",
                              "scan|CAT||DISC", "scan|CAT|N|", "scan|CAT|N|missing", "add|CAT|N|a*b",
                              "add|CAT|N|x|--kind|books", "export|CAT|--format|xml"}) {
        auto words = test::parts(wrong);
        std::ranges::replace(words, "CAT", cat);
        std::ranges::replace(words, "DISC", disc);
        EXPECT_EQ(statusOf(words), 2) << wrong;
    }
    EXPECT_EQ(statusOf({"scan", cat, "N", work.path()}), 2) << "no drive letter leads there";
    EXPECT_EQ(statusOf({"units", cat}), 1);  // and none of these has left a unit
}

TEST_F(Program, TellsAnUnusableCatalogueByItsStatus) {
    EXPECT_EQ(statusOf({"units", work / "missing.zrq"}), 3);
    EXPECT_EQ(statusOf({"scan", disc, "N", disc}), 3);
    test::writeFile(work / "garbage.zrq", std::string(10'000, 'g'));
    EXPECT_EQ(statusOf({"units", work / "garbage.zrq"}), 3);
    EXPECT_EQ(statusOf({"scan", work / "garbage.zrq", "N", disc}), 3);
    EXPECT_EQ(test::readFile(work / "garbage.zrq"), std::string(10'000, 'g'));

    ASSERT_EQ(cliTells({"add", cat, "Cds", "x"}).status, 0);
    EXPECT_EQ(statusOf({"new", cat}), 3);  // never over an existing catalogue
    EXPECT_EQ(cliTells({"units", cat}).text.substr(0, 4), "Cds\t");
    EXPECT_EQ(statusOf({"scan", cat, "cds", disc}), 2);

    auto database = engine::OpenDatabase(cat).value();
    engine::Transaction held(database);
    ASSERT_TRUE(held.begin());
    EXPECT_EQ(cliTells({"scan", cat, "Locked", disc, "--lang", "es"}).text,
              "zarquelin-cli: " + cat + ": Otro programa lo está usando. (database is locked)\n");
    EXPECT_EQ(cliTells({"units", "", "--lang", "es"}).text,
              "zarquelin-cli: \"\": No existe. (No such file or directory)\n");
}

#ifndef __SANITIZE_ADDRESS__
// From where the libraries find no room up to where the command does its work.
TEST_F(Program, EndsWithOneLineWhereThereIsTooLittleMemory) {
    const std::string told = work / "told";
    int status = -1, refused = 0;
    for (int kilobytes = 30'000; status != 0 && kilobytes < 200'000; kilobytes += 500) {
        const std::string limited = "ulimit -v " + std::to_string(kilobytes) + R"(; exec "$0" check "$1")";
        status = test::statusOf({"/bin/sh", "-c", limited, ZARQUELIN_CLI, cat}, {.output = told});
        if (status == 127) continue;  // the loader
        refused += status == 3;
        if (status != 0) {
            EXPECT_EQ(test::readFile(told), "zarquelin-cli: not enough memory\n") << status;
        }
    }
    EXPECT_EQ(status, 0);
    EXPECT_GT(refused, 0);
}
#endif

}  // namespace
