// Two copies of the program on one catalogue: neither crashes, and what one of them reported as done stays
// done.

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include "reliability/catalogue_check.h"
#include "reliability/program.h"
#include "support/temporary_folder.h"

namespace {

class TwoPrograms : public testing::Test {
  protected:
    void SetUp() override {
        test::makeTree(tree, folders, filesInEach);
        test::makeCatalogue(catalogue, {"Earlier"}, 500);
        earlier = test::contentOf(catalogue);
    }

    [[nodiscard]] std::vector<std::string> scanAs(const std::string& unit) const {
        return {ZARQUELIN_CLI, "scan", catalogue, unit, tree};
    }
    // A scan that says it is done has all its rows; one that was refused says so.
    void expectKept(const std::string& unit, int status) const {
        const test::Content content = test::contentOf(catalogue);
        EXPECT_EQ(content.at("Earlier :"), earlier.at("Earlier :"));
        EXPECT_TRUE(status == 0 || status == 3) << status;
        if (status == 0) {
            EXPECT_EQ(content.at(unit + " :").size(), std::size_t{folders} * (filesInEach + 1));
        }
    }

    static constexpr int folders = 60;
    static constexpr int filesInEach = 100;
    test::TemporaryFolder work;
    const std::string tree = work / "tree";
    const std::string catalogue = work / "catalogue.zrq";
    test::Content earlier;
};

TEST_F(TwoPrograms, ScanIntoOneCatalogue) {
    test::Program first(scanAs("First")), second(scanAs("Second"));
    const int firstStatus = first.wait(), secondStatus = second.wait();
    EXPECT_TRUE(firstStatus == 0 || secondStatus == 0);
    expectKept("First", firstStatus);
    expectKept("Second", secondStatus);
}

TEST_F(TwoPrograms, CompactWhatAnotherScansInto) {
    test::Program scan(scanAs("Scanned"));
    while (scan.isRunning()) {
        EXPECT_EQ(test::cliStatus({"compact", catalogue}), 0);
    }
    expectKept("Scanned", scan.wait());
    EXPECT_EQ(test::cliStatus({"compact", catalogue}), 0);
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
