// Disks without room and disks that cannot be written: a clear status, no crash, nothing lost.

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

#include <filesystem>

#include "reliability/catalogue_check.h"
#include "reliability/program.h"

namespace {

namespace fs = std::filesystem;
using test::cliStatus, test::statusOf;
using test::Content;
using Words = std::vector<std::string>;

constexpr int done = 0;
constexpr int unusable = 3;

struct Work {
    Words command;
    std::size_t newRows;  // and nothing else is changed, if any are added
};

std::vector<Work> worksOn(const std::string& catalogue, const std::string& tree) {
    return {
        {{"scan", catalogue, "New", tree}, 20 * 51},
        {{"add", catalogue, "New", "content"}, 1},
        {{"note", catalogue, "Victim", "E:\\folder3\\file 65.txt", std::string(3000, 'n')}, 0},
        {{"rename", catalogue, "Victim", "Survivor with a longer name"}, 0},
        {{"delete", catalogue, "Victim"}, 0},
        {{"compact", catalogue}, 0},
    };
}

// Runs a work where it may not get all the room it wants.
void runCramped(const Work& work, const std::string& catalogue, const Content& before, rlim_t largestFile) {
    const int status = cliStatus(work.command, {.largestFile = largestFile});
    EXPECT_TRUE(status == done || status == unusable) << status;
    const Content after = test::contentOf(catalogue);
    EXPECT_EQ(after.at("Earlier :"), before.at("Earlier :"));
    if (work.newRows > 0) {
        EXPECT_EQ(after.at("Victim :"), before.at("Victim :"));
        EXPECT_TRUE(status == unusable || after.at("New :").size() == work.newRows);
    } else if (status == unusable) {
        EXPECT_EQ(after, before);
    }
}

// A limit on the size of files fails writes in the middle as a disk without room does.
TEST(FullDisk, LosesNothingAndWorkGoesOnWhenThereIsRoom) {
    const test::TemporaryFolder folder;
    test::makeTree(folder / "tree", 20, 50);
    const std::string original = folder / "original.zrq";
    test::makeCatalogue(original, {"Earlier", "Victim"}, 1500);
    const Content before = test::contentOf(original);
    const std::string catalogue = folder / "catalogue.zrq";
    const auto size = static_cast<rlim_t>(fs::file_size(original));

    for (const Work& work : worksOn(catalogue, folder / "tree"))
        for (const rlim_t limit : {rlim_t{0}, rlim_t{600}, size / 2, size, size + 20'000}) {
            SCOPED_TRACE(work.command[0] + " up to " + std::to_string(limit) + " bytes");
            fs::copy_file(original, catalogue, fs::copy_options::overwrite_existing);
            runCramped(work, catalogue, before, limit);
            for (const Words& next : {Words{"add", catalogue, "Next", "content"}, {"compact", catalogue}})
                EXPECT_EQ(cliStatus(next), done);
        }
    EXPECT_NE(statusOf({ZARQUELIN_SAVE_AS, original, catalogue}, {.largestFile = size / 2}), done);
    EXPECT_TRUE(test::contentOf(catalogue).contains("Next :"));
    EXPECT_NE(statusOf({ZARQUELIN_SAVE_AS, original, folder / "new.zrq"}, {.largestFile = size / 2}), done);
    EXPECT_FALSE(fs::exists(folder / "new.zrq"));
}

// For this process and the programs it starts, whoever the user is. False where nothing can be mounted.
bool makeReadOnly(const char* folder) {
    if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount(folder, folder, nullptr, MS_BIND, nullptr) == 0 &&
           mount("none", folder, nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0;
}

TEST(ReadOnlyDisk, IsReadAndRefusesChanges) {
    const test::TemporaryFolder disk, elsewhere;
    test::makeTree(elsewhere / "tree", 20, 50);
    const std::string catalogue = disk / "catalogue.zrq";
    test::makeCatalogue(catalogue, {"Earlier", "Victim"}, 100);
    const std::string bytes = test::readFile(catalogue);
    const Content content = test::contentOf(catalogue);
    if (!makeReadOnly(disk.path().c_str())) GTEST_SKIP() << "no disk can be mounted here";

    for (const Words& reading : {Words{"units", catalogue},
                                 {"list", catalogue, "Victim"},
                                 {"search", catalogue, "file"},
                                 {"export", catalogue},
                                 {"stats", catalogue, "Victim"}})
        EXPECT_EQ(cliStatus(reading), done) << reading[0];
    for (const Work& work : worksOn(catalogue, elsewhere / "tree"))
        EXPECT_EQ(cliStatus(work.command), unusable) << work.command[0];
    EXPECT_EQ(cliStatus({"new", disk / "new.zrq"}), unusable);
    EXPECT_EQ(statusOf({ZARQUELIN_SAVE_AS, catalogue, elsewhere / "copy.zrq"}), done);
    EXPECT_EQ(test::contentOf(elsewhere / "copy.zrq"), content);
    EXPECT_EQ(test::readFile(catalogue), bytes);
    umount2(disk.path().c_str(), MNT_DETACH);
}

}  // namespace
