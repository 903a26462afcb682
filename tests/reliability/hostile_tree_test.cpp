// A tree made to trip a scanner, and one that changes while it is scanned.
//
//     reliability_hostile_tree_test [FILES]      in its biggest folder; 5000 unless told

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "reliability/catalogue_check.h"
#include "reliability/program.h"
#include "support/hostile_names.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

int filesInTheBiggestFolder = 5000;

class HostileTree : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directory(tree);
        ASSERT_TRUE(engine::CreateDatabase(catalogue));
    }
    [[nodiscard]] int scan(const std::string& unit) const {
        return test::statusOf({ZARQUELIN_CLI, "scan", catalogue, unit, tree});
    }
    [[nodiscard]] std::size_t rowsOf(const std::string& unit) const {
        return test::contentOf(catalogue).at(unit + " :").size();
    }

    test::TemporaryFolder work;
    const std::string tree = work / "tree";
    const std::string catalogue = work / "catalogue.zrq";
};

TEST_F(HostileTree, EveryEntryHasItsRow) {
    const auto names = test::hostileNames();
    for (const std::string& name : names) {
        fs::create_directories(tree + "/files");
        test::writeFile(tree + "/files/" + name, "x");
        fs::create_directories(tree + "/folders/" + name);
        test::writeFile(tree + "/folders/" + name + "/inside", "x");
    }
    std::size_t expected = 2 + 3 * names.size();

    fs::create_directory(tree + "/odd");
    ASSERT_EQ(mkfifo((tree + "/odd/fifo").c_str(), 0600), 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    (tree + "/odd/socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    close(socket);
    fs::create_directory_symlink(".", tree + "/odd/self");
    fs::create_directory_symlink(tree, tree + "/odd/top");
    fs::create_symlink("b", tree + "/odd/a");
    fs::create_symlink("a", tree + "/odd/b");
    fs::create_symlink("/proc/self/mem", tree + "/odd/endless");
    fs::create_directory(tree + "/odd/closed");
    fs::permissions(tree + "/odd/closed", fs::perms::none);
    expected += 1 + 8;

    std::string deep = tree + "/deep";
    for (int level = 2; level <= 15; ++level) deep += "/" + std::to_string(level);
    fs::create_directories(deep);
    expected += 12;

    fs::create_directory(tree + "/big");
    for (int file = 0; file < filesInTheBiggestFolder; ++file)
        test::writeFile(tree + "/big/" + std::to_string(file), "");
    expected += 1 + static_cast<std::size_t>(filesInTheBiggestFolder);

    EXPECT_EQ(scan("Odd"), 0);
    EXPECT_EQ(rowsOf("Odd"), expected);
}

// Another program moves and removes folders all the time.
TEST_F(HostileTree, ATreeThatChangesUnderTheScanLosesNothingThatStays) {
    for (int folder = 0; folder < 60; ++folder)
        for (const char* kind : {"stays", "moves"}) {
            const std::string path = tree + "/" + kind + std::to_string(folder) + "/in/deeper";
            fs::create_directories(path);
            for (int file = 0; file < 10; ++file) test::writeFile(path + "/" + std::to_string(file), "");
        }
    const std::string unrest =
        "cd '" + tree +
        "' && while :; do for d in moves*; do mv $d x$d; rm -rf x$d; mkdir -p $d/in/deeper;"
        " : > $d/in/deeper/new; ln -s .. $d/in/up; done; done";
    const pid_t mover = fork();
    if (mover == 0) {
        execl("/bin/sh", "sh", "-c", unrest.c_str(), nullptr);
        _exit(127);
    }
    for (int round = 0; round < 8; ++round) {
        const std::string unit = "Round " + std::to_string(round);
        EXPECT_EQ(scan(unit), 0);
        const auto rows = test::contentOf(catalogue).at(unit + " :");
        const auto staying = std::ranges::count_if(
            rows, [](const std::string& row) { return row.find("\\stays") != row.npos; });
        EXPECT_EQ(staying, 60 * 13);
    }
    kill(mover, SIGKILL);
    waitpid(mover, nullptr, 0);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (argc > 1) filesInTheBiggestFolder = std::atoi(argv[1]);
    return RUN_ALL_TESTS();
}
