// A disk that cannot be written is read, and refuses changes.

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

#include "reliability/catalogue_check.h"
#include "reliability/work.h"
#include "support/another_program.h"

namespace {

using test::cliStatus, test::statusOf;
using Words = std::vector<std::string>;

constexpr int done = 0;
constexpr int unusable = 3;

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
    const test::Content content = test::contentOf(catalogue);
    const std::string halfDone = disk / "half done.zrq";
    test::makeCatalogue(halfDone, {"Earlier"}, 100);
    test::inTheMidstOfAChange(halfDone);
    if (!makeReadOnly(disk.path().c_str())) GTEST_SKIP() << "no disk can be mounted here";

    for (const Words& reading : {Words{"units", catalogue},
                                 {"list", catalogue, "Victim"},
                                 {"search", catalogue, "file"},
                                 {"export", catalogue},
                                 {"stats", catalogue, "Victim"}})
        EXPECT_EQ(cliStatus(reading), done) << reading[0];
    for (const Words& change : {Words{"scan", catalogue, "New", elsewhere / "tree"},
                                {"add", catalogue, "New", "content"},
                                {"note", catalogue, "Victim", "folder3/file 65.txt", "noted"},
                                {"rename", catalogue, "Victim", "Survivor"},
                                {"delete", catalogue, "Victim"},
                                {"compact", catalogue},
                                {"new", disk / "new.zrq"}})
        EXPECT_EQ(cliStatus(change), unusable) << change[0];
    EXPECT_EQ(test::workStatus({"save-as", catalogue, elsewhere / "copy.zrq"}), done);
    EXPECT_EQ(test::contentOf(elsewhere / "copy.zrq"), content);
    EXPECT_EQ(test::readFile(catalogue), bytes);
    EXPECT_EQ(engine::OpenDatabase(halfDone, engine::Use::ReadOnly).error().number,
              engine::error::interrupted);
    for (const char* end : {"", "-journal"})
        std::filesystem::copy(halfDone + end, elsewhere / "copy 2.zrq" + end);
    EXPECT_EQ(test::contentOf(elsewhere / "copy 2.zrq").at("Earlier :"), content.at("Earlier :"));
    umount2(disk.path().c_str(), MNT_DETACH);
}

}  // namespace
