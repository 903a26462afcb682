#include "mount/medium_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "support/mounted_discs.h"

namespace {

using namespace std::chrono_literals;

class FilesOnMedia : public testing::Test {
  protected:
    // The bytes of the file, or "errno N".
    std::string read(const core::CataloguedFile& file) {
        const auto descriptor = media.open(file);
        if (!descriptor) return "errno " + std::to_string(descriptor.error());
        char bytes[64];
        const ssize_t got = ::pread(*descriptor, bytes, sizeof bytes, 0);
        ::close(*descriptor);
        return {bytes, static_cast<std::size_t>(got)};
    }

    test::MountedDiscs discs;
    int looks = 0;
    std::chrono::steady_clock::time_point now;
    mount::MediumFiles media{[this] {
                                 ++looks;
                                 return discs();
                             },
                             [this] { return now; }};
    const std::string away = "errno " + std::to_string(ENOMEDIUM);
};

TEST_F(FilesOnMedia, AreFoundWhereverTheirApostrophesStand) {
    discs.write("photos", "Don't/´90/rock 'n´ roll.txt", "hello");
    discs.insert('F', "photos");
    EXPECT_EQ(read({"E:\\Don´t\\´90", "rock ´n´ roll.txt"}), "hello");
    EXPECT_EQ(read({"E:\\Don´t\\´90", "rock ´n roll.txt"}), away);
    EXPECT_EQ(read({"E:\\..\\Don´t\\´90", "rock ´n´ roll.txt"}), away);
}

TEST_F(FilesOnMedia, AreLookedForAgainOnlyAfterASecond) {
    discs.write("photos", "a.txt", "hello");
    EXPECT_EQ(read({"E:\\", "a.txt"}), away);
    discs.insert('E', "photos");
    now += 999ms;
    EXPECT_EQ(read({"E:\\", "a.txt"}), away);
    EXPECT_EQ(looks, 1);
    now += 1ms;
    EXPECT_EQ(read({"E:\\", "a.txt"}), "hello");
}

TEST_F(FilesOnMedia, AreNeitherFoldersNorPipesNorOnTheMountItself) {
    discs.write("photos", "folder/a.txt", "hello");
    const std::string photos = discs.disc("photos");
    ASSERT_EQ(::mkfifo((photos + "/pipe").c_str(), 0600), 0);
    discs.insert('E', "photos");
    EXPECT_EQ(read({"E:\\", "folder"}), away);
    EXPECT_EQ(read({"E:\\", "pipe"}), away);
    EXPECT_EQ(read({"E:\\..", "a.txt"}), away);
    struct stat here {};
    ASSERT_EQ(::stat(photos.c_str(), &here), 0);
    media.exclude(here.st_dev);
    EXPECT_EQ(read({"E:\\folder", "a.txt"}), away);
}

}  // namespace
