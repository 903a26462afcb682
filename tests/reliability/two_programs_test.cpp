// Several copies of the program on one catalogue: none crashes, and what one of them reported as done stays
// done.
//
//     ROUNDS=SECONDS reliability_two_programs_test     of four programs at once; 1 unless told

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <iostream>
#include <thread>

#include "reliability/catalogue_check.h"
#include "reliability/program.h"
#include "support/rounds.h"
#include "support/temporary_folder.h"

namespace {

class TwoPrograms : public testing::Test {
  protected:
    void SetUp() override {
        test::makeTree(tree, folders, filesInEach);
        test::makeCatalogue(catalogue, {"Earlier"}, 500);
        earlier = test::contentOf(catalogue);
    }

    static constexpr int folders = 60, filesInEach = 100;
    static constexpr std::size_t rowsOfAScan = folders * (filesInEach + 1);
    test::TemporaryFolder work;
    const std::string tree = work / "tree";
    const std::string catalogue = work / "catalogue.zrq";
    test::Content earlier;
};

TEST_F(TwoPrograms, FourOfThemLoseNothing) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(test::rounds(1));
    const auto repeat = [&](const std::function<void(const std::string& round)>& work) {
        return std::thread([end, work] {
            for (int i = 1; i == 1 || std::chrono::steady_clock::now() < end; ++i) work(std::to_string(i));
        });
    };
    struct Outcomes {
        std::atomic<int> done = 0, refused = 0;
        bool add(int status) {
            EXPECT_TRUE(status == 0 || status == 3) << status;
            ++(status == 0 ? done : refused);
            return status == 0;
        }
    } scans, deletions, notes, compactions, lists;
    const std::string file = "E:\\folder3\\file 65.txt";
    const test::Told whole = test::cliTells({"list", catalogue, "Earlier", "E:\\folder3"});
    std::string noted;
    std::vector<std::string> units[2];  // that were scanned and not deleted
    const auto scanAndDelete = [&](std::vector<std::string>& mine, const std::string& unit) {
        if (scans.add(test::statusOf({ZARQUELIN_CLI, "scan", catalogue, unit, tree}))) mine.push_back(unit);
        if (mine.size() > 1 && deletions.add(test::cliStatus({"delete", catalogue, mine.front()})))
            mine.erase(mine.begin());
    };
    std::thread programs[]{
        repeat([&](const std::string& round) { scanAndDelete(units[0], "First " + round); }),
        repeat([&](const std::string& round) { scanAndDelete(units[1], "Second " + round); }),
        repeat([&](const std::string&) {
            compactions.add(test::cliStatus({"compact", catalogue}));
        }),
        repeat([&](const std::string& round) {
            if (notes.add(test::cliStatus({"note", catalogue, "Earlier", file, round}))) noted = round;
            const test::Told now = test::cliTells({"list", catalogue, "Earlier", "E:\\folder3"});
            if (lists.add(now.status)) {
                EXPECT_EQ(now.text, whole.text);
            }
        })};
    for (std::thread& program : programs) program.join();

    test::Content content = test::contentOf(catalogue);
    for (const auto& mine : units)
        for (const std::string& unit : mine) EXPECT_EQ(content[unit + " :"].size(), rowsOfAScan);
    int found = 0;
    for (std::string& row : content["Earlier :"])
        if (row.ends_with('|' + noted + '|') && ++found > 0)
            row.replace(row.size() - noted.size() - 1, noted.size(), "-");
    EXPECT_EQ(found, noted.empty() ? 0 : 1);
    EXPECT_EQ(content["Earlier :"], earlier["Earlier :"]);
    for (const auto& [name, of] : {std::pair{"scan", &scans},
                                   {"delete", &deletions},
                                   {"note", &notes},
                                   {"compact", &compactions},
                                   {"list", &lists}})
        std::cout << name << '\t' << of->done << " done\t" << of->refused << " refused\n";
}

// Ctrl-C, or the end of a session, in the midst of a compaction: nothing is left beside the catalogue.
TEST_F(TwoPrograms, ARequestToTerminateLeavesNoTemporaryFile) {
    test::makeCatalogue(work / "big.zrq", {"Big"}, 60'000);
    namespace fs = std::filesystem;
    const auto temporaries = [&] {
        return std::count_if(fs::directory_iterator(work.path()), {}, [](const fs::directory_entry& entry) {
            const std::string name = entry.path().filename();
            return name.starts_with(".zarquelin-") || name == "compactada.zrq";
        });
    };
    test::Program compaction({ZARQUELIN_CLI, "compact", work / "big.zrq"});
    while (temporaries() < 2 && compaction.isRunning()) {
    }
    compaction.send(SIGTERM);
    compaction.wait();
    EXPECT_EQ(temporaries(), 0);
    EXPECT_EQ(test::contentOf(work / "big.zrq").at("Big :").size(), 60'000U);
}

}  // namespace
