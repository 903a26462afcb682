// Disks without room and disks that cannot be written: a clear status, no crash, nothing lost, and good again
// as soon as there is room.

#include <gtest/gtest.h>

#include <filesystem>

#include "reliability/catalogue_check.h"
#include "reliability/own_disk.h"
#include "reliability/program.h"

namespace {

namespace fs = std::filesystem;
using test::Content;
using test::statusOf;
using Words = std::vector<std::string>;

constexpr int done = 0;
constexpr int unusable = 3;

struct Work {
    const char* name;
    Words command;
    bool grows;  // only this work adds rows
};

std::vector<Work> worksOn(const std::string& catalogue, const std::string& tree) {
    return {
        {"scan", {ZARQUELIN_CLI, "scan", catalogue, "New", tree}, true},
        {"add", {ZARQUELIN_CLI, "add", catalogue, "New", "content"}, true},
        {"note",
         {ZARQUELIN_CLI, "note", catalogue, "Victim", "E:\\folder3\\file 65.txt", std::string(3000, 'n')},
         false},
        {"rename", {ZARQUELIN_CLI, "rename", catalogue, "Victim", "Survivor with a longer name"}, false},
        {"delete", {ZARQUELIN_CLI, "delete", catalogue, "Victim"}, false},
        {"compact", {ZARQUELIN_CLI, "compact", catalogue}, false},
    };
}

// Runs a work where it may not get all the room it wants.
void runCramped(const Work& work, const std::string& catalogue, const Content& before,
                const test::Conditions& conditions) {
    const int status = statusOf(work.command, conditions);
    EXPECT_TRUE(status == done || status == unusable) << status;
    const Content after = test::contentOf(catalogue);
    EXPECT_EQ(after.at("Earlier :"), before.at("Earlier :"));
    if (work.grows) {
        EXPECT_EQ(after.at("Victim :"), before.at("Victim :"));
    }
    if (status == unusable && !work.grows) {
        EXPECT_EQ(after, before);
    }
}

TEST(FullDisk, NothingIsLostAndWorkGoesOnWhenThereIsRoom) {
    const test::OwnDisk disk(4);
    if (!disk.isMounted()) GTEST_SKIP() << "no disk can be mounted here";
    const test::TemporaryFolder elsewhere;
    test::makeTree(elsewhere / "tree", 20, 50);
    const std::string original = elsewhere / "original.zrq";
    test::makeCatalogue(original, {"Earlier", "Victim"}, 1500);
    const Content before = test::contentOf(original);
    const std::string catalogue = disk / "catalogue.zrq";

    for (const Work& work : worksOn(catalogue, elsewhere / "tree"))
        for (const unsigned kilobytes : {0U, 4U, 12U, 60U, 160U, 400U}) {
            SCOPED_TRACE(std::string(work.name) + " with " + std::to_string(kilobytes) + " KB");
            fs::copy_file(original, catalogue, fs::copy_options::overwrite_existing);
            disk.leaveFree(kilobytes);
            runCramped(work, catalogue, before, {});
            disk.giveAll();
            EXPECT_EQ(statusOf({ZARQUELIN_CLI, "add", catalogue, "Next", "content"}), done);
            EXPECT_EQ(statusOf({ZARQUELIN_CLI, "compact", catalogue}), done);
            EXPECT_TRUE(test::contentOf(catalogue).contains("Next :"));
        }

    disk.leaveFree(60);
    EXPECT_NE(statusOf({ZARQUELIN_SAVE_AS, original, catalogue}), done);
    EXPECT_TRUE(test::contentOf(catalogue).contains("Next :"));
    EXPECT_NE(statusOf({ZARQUELIN_SAVE_AS, original, disk / "new.zrq"}), done);
    EXPECT_FALSE(fs::exists(disk / "new.zrq"));
}

TEST(FullDisk, AFileThatMayNotGrowLosesNothing) {
    const test::TemporaryFolder folder;
    test::makeTree(folder / "tree", 20, 50);
    const std::string original = folder / "original.zrq";
    test::makeCatalogue(original, {"Earlier", "Victim"}, 1500);
    const Content before = test::contentOf(original);
    const std::string catalogue = folder / "catalogue.zrq";
    const auto size = static_cast<rlim_t>(fs::file_size(original));

    for (const Work& work : worksOn(catalogue, folder / "tree"))
        for (const rlim_t limit : {rlim_t{0}, rlim_t{600}, size / 2, size, size + 20'000}) {
            SCOPED_TRACE(std::string(work.name) + " up to " + std::to_string(limit) + " bytes");
            fs::copy_file(original, catalogue, fs::copy_options::overwrite_existing);
            runCramped(work, catalogue, before, {.largestFile = limit});
            EXPECT_EQ(statusOf({ZARQUELIN_CLI, "add", catalogue, "Next", "content"}), done);
        }
    EXPECT_NE(statusOf({ZARQUELIN_SAVE_AS, original, catalogue}, {.largestFile = size / 2}), done);
    EXPECT_TRUE(test::contentOf(catalogue).contains("Next :"));
}

TEST(ReadOnlyDisk, IsReadAndRefusesChanges) {
    const test::OwnDisk disk(4);
    if (!disk.isMounted()) GTEST_SKIP() << "no disk can be mounted here";
    const test::TemporaryFolder elsewhere;
    test::makeTree(elsewhere / "tree", 20, 50);
    const std::string catalogue = disk / "catalogue.zrq";
    test::makeCatalogue(catalogue, {"Earlier", "Victim"}, 100);
    const std::string bytes = test::readFile(catalogue);
    const Content content = test::contentOf(catalogue);
    ASSERT_TRUE(disk.makeReadOnly());

    for (const Words& reading : {Words{"units", catalogue},
                                 {"list", catalogue, "Victim"},
                                 {"search", catalogue, "file"},
                                 {"export", catalogue},
                                 {"stats", catalogue, "Victim"}}) {
        Words command{ZARQUELIN_CLI};
        command.insert(command.end(), reading.begin(), reading.end());
        EXPECT_EQ(statusOf(command), done) << reading[0];
    }
    for (const Work& work : worksOn(catalogue, elsewhere / "tree"))
        EXPECT_EQ(statusOf(work.command), unusable) << work.name;
    EXPECT_EQ(statusOf({ZARQUELIN_CLI, "new", disk / "new.zrq"}), unusable);
    EXPECT_EQ(statusOf({ZARQUELIN_SAVE_AS, catalogue, elsewhere / "copy.zrq"}), done);
    EXPECT_EQ(test::contentOf(elsewhere / "copy.zrq"), content);
    EXPECT_EQ(test::readFile(catalogue), bytes);
}

}  // namespace
