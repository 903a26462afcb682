#include "platform/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <filesystem>

#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using platform::CopyFile;
using platform::FileError;
using test::readFile;
using test::writeFile;

int numberOf(const platform::FileResult<>& result) {
    return result ? 0 : result.error().number;
}

std::size_t entriesIn(const std::string& folder) {
    return std::size_t(std::distance(fs::directory_iterator(folder), {}));
}

struct Files : testing::Test {
    test::TemporaryFolder folder;
    const std::string source = folder / "source";
    const std::string destination = folder / "destination";
};

TEST_F(Files, CopiesBytesTimeAndMode) {
    const std::string bytes = std::string(3'000'000, 'x') + '\0' + "end";
    writeFile(source, bytes);
    const timespec times[2] = {{1'000'000'000, 5}, {-86'400 * 365, 7}};  // 1969 counts too
    ASSERT_EQ(::utimensat(AT_FDCWD, source.c_str(), times, 0), 0);
    fs::permissions(source, fs::perms(0440));
    writeFile(destination, "old and longer than nothing");

    ASSERT_EQ(numberOf(CopyFile(source, destination)), 0);
    EXPECT_EQ(readFile(destination), bytes);
    EXPECT_EQ(fs::last_write_time(destination), fs::last_write_time(source));
    EXPECT_EQ(fs::status(destination).permissions(), fs::perms(0440));
    EXPECT_EQ(entriesIn(folder.path()), 2U);
}

TEST_F(Files, FilesThatLieAboutTheirSizeAreCopiedWhole) {
    // The kernel's own files tell the size 0, and copying inside the kernel gives nothing.
    ASSERT_EQ(numberOf(CopyFile("/proc/self/stat", destination)), 0);
    EXPECT_GT(fs::file_size(destination), 10U);
}

TEST_F(Files, RefusesToCopyAFileOntoItself) {
    writeFile(source, "precious");
    fs::create_hard_link(source, folder / "same");
    fs::create_symlink("source", folder / "link");
    for (const std::string& name : {source, folder / "same", folder / "link", folder.path() + "/./source"}) {
        EXPECT_EQ(numberOf(CopyFile(source, name)), FileError::permissionDenied);
        EXPECT_EQ(numberOf(CopyFile(name, source)), FileError::permissionDenied);
    }
    EXPECT_EQ(readFile(source), "precious");
}

TEST_F(Files, ALinkAtTheDestinationIsReplacedAndItsTargetKept) {
    writeFile(source, "new");
    writeFile(folder / "elsewhere", "untouched");
    fs::create_symlink("elsewhere", destination);
    ASSERT_EQ(numberOf(CopyFile(source, destination)), 0);
    EXPECT_FALSE(fs::is_symlink(destination));
    EXPECT_EQ(readFile(destination), "new");
    EXPECT_EQ(readFile(folder / "elsewhere"), "untouched");
}

TEST_F(Files, EveryRefusalHasItsNumberAndLeavesTheDestination) {
    writeFile(source, "new");
    writeFile(destination, "old");
    fs::permissions(destination, fs::perms(0444));
    fs::create_directory(folder / "sub");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const std::string inSub = folder / "sub/x";

    EXPECT_EQ(numberOf(CopyFile(source, destination)), FileError::permissionDenied);
    EXPECT_EQ(numberOf(CopyFile(folder / "gone", inSub)), FileError::fileNotFound);
    EXPECT_EQ(numberOf(CopyFile(folder / "no/gone", inSub)), FileError::pathNotFound);
    EXPECT_EQ(numberOf(CopyFile(source + "/x", inSub)), FileError::pathNotFound);
    EXPECT_EQ(numberOf(CopyFile(source, folder / "no/x")), FileError::pathNotFound);
    EXPECT_EQ(numberOf(CopyFile(folder / "sub", inSub)), FileError::fileNotFound);
    EXPECT_EQ(numberOf(CopyFile(folder / "pipe", inSub)), FileError::fileNotFound);
    EXPECT_EQ(numberOf(CopyFile(source, folder / "sub")), FileError::permissionDenied);
    EXPECT_EQ(numberOf(CopyFile(source, folder / "pipe")), FileError::permissionDenied);
    EXPECT_EQ(readFile(destination), "old");
    EXPECT_EQ(entriesIn(folder / "sub"), 0U);
    EXPECT_EQ(entriesIn(folder.path()), 4U) << "a temporary file was left";
}

TEST_F(Files, ADiskThatFillsUpCostsNothing) {
    writeFile(source, std::string(300'000, 'n'));
    writeFile(destination, "old");
    const auto copied = [&] {
        const test::FileSizeLimit limit(100'000);
        return CopyFile(source, destination);
    }();

    EXPECT_EQ(numberOf(copied), FileError::diskFull);
    EXPECT_EQ(readFile(destination), "old");
    EXPECT_EQ(entriesIn(folder.path()), 2U);
}

}  // namespace
