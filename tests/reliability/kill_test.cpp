// Kills the program before any change of a file. Then the catalogue must open, be sound, hold all
// that it held, and be good for the next run.
//
//     ROUNDS=KILLS reliability_kill_test     of each work; 6 unless told

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <span>

#include "reliability/catalogue_check.h"
#include "reliability/work.h"
#include "support/rounds.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using test::Content;
using Words = std::vector<std::string>;

const int killsOfEach = test::rounds(6);

// Whatever is killed, its catalogue holds the unit "Earlier", which nothing touches, and "Victim".
class Killed : public testing::Test {
  protected:
    void SetUp() override {
        test::makeCatalogue(original, {"Earlier", "Victim"}, 400);
        before = test::contentOf(original);
    }

    void damageACopy() const {
        std::string bytes = test::readFile(original);
        test::writeFile(damaged, bytes.replace(bytes.size() - 8192, 8192, 8192, '\0'));
    }

    void restore() const { fs::copy_file(start, catalogue, fs::copy_options::overwrite_existing); }

    // How often the command changes a file; it is done.
    [[nodiscard]] int changesOf(const Words& command) const {
        EXPECT_EQ(test::statusOf(command, {.environment = {preload, "CALL_COUNTS=" + work / "counts"}}), 0);
        std::ifstream counts(work / "counts");
        std::string kind;
        int changes = 0;
        for (int count = 0; counts >> kind >> count;)
            if (std::string_view("write flush rename unlink truncate").contains(kind)) changes += count;
        return changes;
    }

    // Kills the command before changes all over its run, each time on a fresh catalogue. `check` gets what
    // the catalogue holds then.
    void killAnywhere(const Words& command, const std::function<void(const Content&)>& check) const {
        restore();
        const int changes = changesOf(command);
        ASSERT_GT(changes, 0);
        for (int kill = 0; kill < killsOfEach; ++kill) {
            std::minstd_rand random(static_cast<unsigned>(kill) + 1);
            random.discard(10);
            const std::string change = std::to_string(1 + random() % static_cast<unsigned>(changes));
            SCOPED_TRACE("change " + change + " of " + std::to_string(changes));
            restore();
            const int status = test::statusOf(command, {.environment = {preload, "KILLED_AT=" + change}});
            // A scan writes in its own time, and may be done sooner.
            EXPECT_TRUE(status == 128 + SIGKILL || status == 0) << status;
            if (start == damaged && test::readFile(catalogue) == test::readFile(damaged)) {
                EXPECT_EQ(test::cliStatus({"repair", catalogue}), 0);
            }
            // The next run, which only reads, must not mind what the killed one left behind.
            EXPECT_EQ(test::cliStatus({"units", catalogue}), 0);
            const Content after = test::contentOf(catalogue);
            EXPECT_EQ(after.at("Earlier :"), before.at("Earlier :"));
            check(after);
            EXPECT_EQ(test::cliStatus({"add", catalogue, "Next", "content"}), 0);
            EXPECT_EQ(test::cliStatus({"compact", catalogue}), 0);
            EXPECT_EQ(test::contentOf(catalogue).size(), after.size() + 1);
            if (HasFailure()) return;
        }
    }

    const std::string preload = "LD_PRELOAD=" FAILING_CALLS_LIBRARY;
    test::TemporaryFolder work;
    const std::string original = work / "original.zrq";
    const std::string catalogue = work / "catalogue.zrq", damaged = work / "damaged.zrq";
    std::string start = original;
    Content before;
};

TEST_F(Killed, ScanKeepsWhatItHadWritten) {
    test::makeTree(work / "tree", 40, 50);
    const Words scan{ZARQUELIN_CLI, "scan", catalogue, "New", work / "tree"};
    restore();
    ASSERT_EQ(test::statusOf(scan), 0);
    const auto whole = test::contentOf(catalogue).at("New :");
    ASSERT_EQ(whole.size(), 40U * 51U);

    killAnywhere(scan, [&](const Content& after) {
        EXPECT_EQ(after.at("Victim :"), before.at("Victim :"));
        const auto found = after.find("New :");
        const std::vector<std::string> rows =
            found == after.end() ? std::vector<std::string>() : found->second;
        ASSERT_LE(rows.size(), whole.size());
        EXPECT_TRUE(std::ranges::equal(rows, std::span(whole).first(rows.size())));
    });
}

TEST_F(Killed, AllElseLeavesTheOldStateOrTheNewOne) {
    const std::string tree = work / "tree", rows = work / "rows.csv", file = "E:\\folder3\\file 65.txt";
    const std::string saved = work / "saved.zrq", imported = work / "imported.zrq";
    test::makeTree(tree, 15, 40);  // of which "Victim" knows some folders
    test::writeFile(tree + "/folder3/file 65.txt", "");
    test::makeCatalogue(saved, {"Earlier", "Other"}, 400);
    test::makeCatalogue(imported, {"Imported"}, 400);
    ASSERT_EQ(test::cliStatus({"export", imported}, {.output = rows}), 0);
    ASSERT_EQ(test::cliStatus({"note", original, "Victim", file, "kept"}), 0);
    before = test::contentOf(original);
    damageACopy();

    for (const Words& words : {Words{"note", catalogue, "Victim", file, "noted"},
                               {"rename", catalogue, "Victim", "Renamed"},
                               {"delete", catalogue, "Victim"},
                               {"import", catalogue, rows},
                               {"update", catalogue, "Victim", tree},
                               {"compact", catalogue},
                               {"save-as", saved, catalogue},
                               {"repair", catalogue}}) {
        SCOPED_TRACE(words[0]);
        const Words command = test::programFor(words);
        start = words[0] == "repair" ? damaged : original;
        restore();
        ASSERT_EQ(test::statusOf(command), 0);
        const Content done = test::contentOf(catalogue);
        killAnywhere(command, [&](const Content& after) { EXPECT_TRUE(after == before || after == done); });
    }
}

// Somebody puts a sound copy in the place of a damaged catalogue while that is being repaired.
TEST_F(Killed, ARepairReplacesNoFileButTheOneItReads) {
    damageACopy();
    start = damaged;
    restore();
    test::Program repair({ZARQUELIN_CLI, "repair", catalogue}, {.environment = {preload, "STOPPED_AT=1"}});
    ASSERT_TRUE(repair.waitForStop());
    fs::rename(original, catalogue);
    repair.send(SIGCONT);
    EXPECT_EQ(repair.wait(), 3);
    EXPECT_EQ(test::contentOf(catalogue), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(work.path()), {}), 2) << "nothing else was left";
}

}  // namespace
