// Every call that the program makes of the system fails in its turn, once or from then on. Whatever the
// command, it ends by itself; what it says is true, and the catalogue holds what it held or what it was to
// hold.
//
//     ROUNDS=CALLS reliability_failing_calls_test     of each kind and command; 1 unless told, 0 is every one
//
// Prints for each how often the command was done all the same, and how often it told that it failed.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <random>

#include "reliability/catalogue_check.h"
#include "reliability/work.h"
#include "support/rounds.h"

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

constexpr int done = 0, nothingThere = 1, unusable = 3;
const int callsOfEach = test::rounds(1);

enum class Kind {
    Reads,    // and prints what it finds
    Changes,  // all or nothing
    Scans,    // what it reported until then stays; names what of the medium it could not read
};

struct Command {
    Words words;  // without the program
    Kind kind;
};

const Command commands[]{
    {{"units", "CAT"}, Kind::Reads},
    {{"list", "CAT", "Victim"}, Kind::Reads},
    {{"search", "CAT", "7"}, Kind::Reads},
    {{"search", "LARGE", "file"}, Kind::Reads},  // which sorts on another thread
    {{"searches", "CAT"}, Kind::Reads},  // as the window does, the names kept in memory from the first one on
    {{"duplicates", "CAT", "--by", "size"}, Kind::Reads},
    {{"stats", "CAT", "Victim", "E:\\folder3"}, Kind::Reads},
    {{"note", "CAT", "Victim", "E:\\folder3\\file 65.txt"}, Kind::Reads},
    {{"export", "CAT"}, Kind::Reads},
    {{"check", "CAT"}, Kind::Reads},
    {{"backup", "CAT", "copy.zrq"}, Kind::Reads},
    {{"note", "CAT", "Victim", "E:\\folder3\\file 65.txt", "noted"}, Kind::Changes},
    {{"rename", "CAT", "Victim", "Renamed"}, Kind::Changes},
    {{"delete", "CAT", "Victim"}, Kind::Changes},
    {{"add", "CAT", "New", "content"}, Kind::Changes},
    {{"import", "CAT", "ROWS"}, Kind::Changes},
    {{"save-as", "OTHER", "CAT"}, Kind::Changes},  // over this catalogue
    {{"compact", "CAT"}, Kind::Changes},
    {{"repair", "CAT"}, Kind::Changes},
    {{"repair", "DAMAGED"}, Kind::Changes},
    {{"update", "CAT", "Victim", "TREE"}, Kind::Scans},
    {{"scan", "CAT", "New", "TREE"}, Kind::Scans},
};

struct Outcome {
    int status = -1;
    std::string output;
    test::Content content;
};

class FailingCalls : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directory(work / "run");
        fs::current_path(work / "run");
        test::makeCatalogue(original, {"Earlier", "Victim"}, 300);
        test::makeCatalogue(large, {"Large"}, 40'000);
        test::makeTree(tree, 4, 12);
        damageACopy();
        test::makeCatalogue(other, {"Imported"}, 50);
        test::cliStatus({"export", other}, {.output = rows});
    }
    void TearDown() override { fs::current_path("/"); }

    // The index of a copy of the catalogue ends in nothing.
    void damageACopy() const {
        std::string bytes = test::readFile(original);
        bytes.replace(bytes.size() - 8192, 8192, 8192, '\0');
        test::writeFile(damaged, bytes);
    }

    [[nodiscard]] const std::string& soundOne(const Command& command) const {
        return command.words[1] == "LARGE" ? large : original;
    }

    Outcome run(const Command& command, const std::string& environment) {
        const bool onDamaged = command.words[1] == "DAMAGED";
        for (const auto& entry : fs::directory_iterator(".")) fs::remove(entry);
        fs::copy_file(onDamaged ? damaged : soundOne(command), catalogue);
        Words words = command.words;
        for (const auto& [word, path] : {std::pair{"CAT", &catalogue},
                                         {"DAMAGED", &catalogue},
                                         {"LARGE", &catalogue},
                                         {"OTHER", &other},
                                         {"TREE", &tree},
                                         {"ROWS", &rows}})
            std::ranges::replace(words, word, *path);
        Outcome outcome;
        outcome.status = test::workStatus(
            words, {.output = output,
                    .environment = {"LD_PRELOAD=" FAILING_CALLS_LIBRARY, "ZARQUELIN_DRIVES=C=/",
                                    "ASAN_OPTIONS=exitcode=99", environment}});
        outcome.output = test::readFile(output);
        if (!onDamaged || outcome.status == done) outcome.content = test::contentOf(catalogue);
        return outcome;
    }

    std::map<std::string, int> countsOf(const Command& command) {
        whole = run(command, "CALL_COUNTS=" + counted);
        std::map<std::string, int> counts;
        std::ifstream file(counted);
        std::string kind;
        for (int count = 0; file >> kind >> count;) counts[kind] = count;
        return counts;
    }

    void expectTrue(const Command& command, const std::string& failing, const Outcome& now) {
        ASSERT_LT(now.status, 128) << now.output.substr(0, 200);
        if (now.status != whole.status) {
            EXPECT_TRUE(now.status > done && now.status <= unusable)
                << now.status << now.output.substr(0, 200);
            EXPECT_FALSE(now.output.empty()) << "a failure is told";
        }
        const bool finished = now.status == whole.status;
        switch (command.kind) {
            case Kind::Reads:
                EXPECT_EQ(now.content, old);
                if (finished) {
                    EXPECT_EQ(now.output, whole.output);
                }
                if (fs::exists(copy)) {
                    EXPECT_EQ(test::contentOf(copy), old);
                }
                break;
            case Kind::Changes:
                if (command.words[1] == "DAMAGED" && !finished) {
                    if (isSame(catalogue, damaged)) break;  // else all was done but the telling
                    EXPECT_TRUE(isSame(catalogue + ".damaged", damaged));
                    EXPECT_EQ(test::contentOf(catalogue), whole.content);
                } else if (finished && now.output == whole.output) {  // nothing was said
                    EXPECT_EQ(now.content, whole.content);
                } else {
                    EXPECT_TRUE(now.content == old || now.content == whole.content)
                        << now.output.substr(0, 200);
                }
                break;
            case Kind::Scans:
                expectScanned(command.words[2] + " :", now);
        }
        if (failing.starts_with("unlink")) return;
        for (const auto& entry : fs::directory_iterator(".")) {
            const std::string name = entry.path().filename();
            EXPECT_TRUE(name == catalogue || name == catalogue + "-journal" ||
                        name == catalogue + ".damaged" || name == copy)
                << name;
        }
    }

    static bool isSame(const std::string& a, const std::string& b) {
        return test::readFile(a) == test::readFile(b);
    }

    // No other unit is touched; all rows are there if nothing else is said.
    void expectScanned(const std::string& unit, const Outcome& now) const {
        auto rest = now.content, oldRest = old;
        rest.erase(unit);
        oldRest.erase(unit);
        EXPECT_EQ(rest, oldRest);
        if (now.output == whole.output) {
            EXPECT_EQ(now.content, whole.content);
        }
    }

    test::TemporaryFolder work;
    const std::string original = work / "original.zrq", damaged = work / "damaged.zrq",
                      large = work / "large.zrq", tree = work / "tree", other = work / "other.zrq",
                      rows = work / "rows.csv", output = work / "output", counted = work / "counts";
    const std::string catalogue = "catalogue.zrq", copy = "copy.zrq";  // in the current folder
    test::Content old;
    Outcome whole;
};

TEST_F(FailingCalls, EndInTheOldStateOrTheNewOneAndAreTold) {
    std::minstd_rand random(11);
    for (const Command& command : commands) {
        old = test::contentOf(soundOne(command));
        const std::string name = command.words[0] + ' ' + command.words[1];
        const auto counts = countsOf(command);
        ASSERT_LE(whole.status, nothingThere) << name << ": " << whole.output;
        std::cout << name;
        for (const auto& [kind, count] : counts) {
            int finished = 0, told = 0;
            for (const bool on : {false, true})
                for (int i = 0; i < (callsOfEach > 0 ? std::min(callsOfEach, count) : count); ++i) {
                    const int n = callsOfEach > 0
                                      ? 1 + static_cast<int>(random() % static_cast<unsigned>(count))
                                      : i + 1;
                    const std::string failing = kind + ' ' + std::to_string(n) + (on ? " on" : "");
                    SCOPED_TRACE(name + ", " + failing);
                    const Outcome now = run(command, "FAILING_CALLS=" + failing);
                    expectTrue(command, failing, now);
                    ++(now.status == whole.status ? finished : told);
                }
            if (finished + told > 0) std::cout << '\t' << kind << ' ' << finished << '/' << told;
        }
        std::cout << std::endl;
    }
}

}  // namespace
