#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <functional>
#include <set>
#include <thread>

#include "core/serial_date.h"
#include "core/text.h"
#include "reliability/program.h"
#include "support/catalogue_fixture.h"
#include "support/hostile_names.h"

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

bool holdsSoon(const std::function<bool()>& condition) {
    for (const auto end = std::chrono::steady_clock::now() + 20s; std::chrono::steady_clock::now() < end;
         std::this_thread::yield())
        if (condition()) return true;
    return false;
}

int errnoOf(int result) {
    return result < 0 ? errno : 0;
}

// The real program and the real kernel.
class Mounted : public testing::Test {
  protected:
    void SetUp() override {
        if (const int fuse = ::open("/dev/fuse", O_RDWR | O_CLOEXEC); fuse >= 0)
            ::close(fuse);
        else
            GTEST_SKIP() << "/dev/fuse cannot be opened here: " << std::strerror(errno);
        fs::create_directory(folder);
        fs::create_directory(disc);
        ::setenv("ZARQUELIN_DRIVES", ("E=" + disc + ",optical").c_str(), 1);
        // Containers may hand the device out and forbid what it is for.
        const test::Told told = test::cliTells({"mount", catalogue.path, folder});
        if (told.text.contains("cannot be mounted")) GTEST_SKIP() << told.text;
        ASSERT_EQ(told.status, 0) << told.text;
        unmount();
    }
    void TearDown() override {
        if (isMounted()) unmount();
    }

    void mount() { EXPECT_EQ(test::cliStatus({"mount", catalogue.path, folder}), 0); }
    [[nodiscard]] bool isMounted() const {
        struct stat inside {
        }, outside{};
        return ::stat(folder.c_str(), &inside) != 0 ||
               (::stat(catalogue.folder.path().c_str(), &outside) == 0 && inside.st_dev != outside.st_dev);
    }
    // Another process may just be looking at the mount.
    void unmount() const {
        const std::vector<std::string> command{"/bin/sh", "-c", "fusermount3 -u '" + folder + "'"};
        EXPECT_TRUE(holdsSoon([&] { return test::statusOf(command) == 0; }));
    }

    test::CatalogueFixture catalogue;
    const std::string folder = catalogue.folder / "shown", disc = catalogue.folder / "disc";
};

TEST_F(Mounted, ShowsNamesSizesDatesAndNotesAndRefusesToWrite) {
    auto row = test::fileRow("Fotos :", "E:\\viejas", "a.jpg", 3);
    row.fecha = core::serialOfTime(1'000'000'000);
    row.comentario = "la abuela";
    catalogue.add({test::folderRow("Fotos :", "E:\\viejas"), row,
                   test::unitRow("Cine :", "Casablanca", "Unidad de video")});
    mount();
    const std::string photo = folder + "/Fotos/viejas/a.jpg";
    struct stat status {};
    ASSERT_EQ(::stat(photo.c_str(), &status), 0);
    EXPECT_EQ(status.st_size, 3 * 1024);
    EXPECT_EQ(status.st_blocks, 6);
    EXPECT_EQ(status.st_mtim.tv_sec, 1'000'000'000);
    EXPECT_EQ(status.st_mode, mode_t{S_IFREG | 0444});

    char note[64];
    EXPECT_EQ(::getxattr(photo.c_str(), "user.comment", note, sizeof note), 9);
    EXPECT_EQ(std::string(note, 9), "la abuela");
    EXPECT_EQ(::listxattr(photo.c_str(), note, sizeof note), 13);
    EXPECT_EQ(errnoOf(::getxattr((folder + "/Cine").c_str(), "user.comment", note, sizeof note)), ENODATA);
    struct statvfs totals {};
    ASSERT_EQ(::statvfs(folder.c_str(), &totals), 0);
    EXPECT_EQ(totals.f_blocks * totals.f_frsize, 3U * 1024);
    EXPECT_EQ(totals.f_bfree, 0U);

    EXPECT_EQ(errnoOf(::open((folder + "/new").c_str(), O_WRONLY | O_CREAT, 0600)), EROFS);
    EXPECT_EQ(errnoOf(::open(photo.c_str(), O_RDWR)), EROFS);
    EXPECT_EQ(errnoOf(::unlink(photo.c_str())), EROFS);
    EXPECT_EQ(errnoOf(::mkdir((folder + "/new").c_str(), 0700)), EROFS);
    EXPECT_EQ(errnoOf(::setxattr(photo.c_str(), "user.comment", "x", 1, 0)), EROFS);

    EXPECT_EQ(test::readFile(folder + "/Cine/Casablanca"), "");
    EXPECT_EQ(errnoOf(::open(photo.c_str(), O_RDONLY)), ENOMEDIUM);
}

TEST_F(Mounted, GivesTheMediumsBytesWhereItIsThere) {
    std::string bytes;
    for (unsigned i = 0; i < 300'000; ++i) bytes += static_cast<char>(i * 7919 >> 3);
    for (const std::size_t size : {std::size_t{0}, std::size_t{100}, std::size_t{1100}, bytes.size()})
        test::writeFile(disc + "/f" + std::to_string(size), bytes.substr(0, size));
    ASSERT_EQ(test::cliStatus({"scan", catalogue.path, "Disco", disc}), 0);
    mount();
    for (const auto& file : fs::directory_iterator(disc)) {
        const std::string shown = folder + "/Disco/" + file.path().filename().string();
        EXPECT_EQ(test::readFile(shown), test::readFile(file.path())) << shown;
        const int descriptor = ::open(shown.c_str(), O_RDONLY);
        struct stat status {};
        ASSERT_EQ(::fstat(descriptor, &status), 0);
        EXPECT_EQ(status.st_size, static_cast<off_t>(file.file_size()));  // to the byte while it is open
        ::close(descriptor);
    }
    // Another medium in the drive.
    test::writeFile(disc + "/f100", "new");
    EXPECT_EQ(test::readFile(folder + "/Disco/f100"), "new");
}

TEST_F(Mounted, HasEveryNameOfADisk) {
    for (const std::string& name : test::hostileNames()) test::writeFile(disc + '/' + name, "x");
    ASSERT_EQ(test::cliStatus({"scan", catalogue.path, "Disco", disc}), 0);
    mount();
    std::set<std::string> real, shown;
    for (const auto& file : fs::directory_iterator(disc)) {
        const std::string name = file.path().filename(), stored = core::withoutApostrophes(name);
        real.insert(stored.size() > 255 ? name : stored);
    }
    for (const auto& file : fs::directory_iterator(folder + "/Disco")) {
        shown.insert(file.path().filename());
        EXPECT_EQ(test::readFile(file.path()), "x") << file.path();
    }
    EXPECT_EQ(shown, real);
}

TEST_F(Mounted, ShowsAChangeOfTheCatalogueAndLetsOthersWrite) {
    catalogue.add(test::fileRow("A :", "E:\\", "a"));
    mount();
    ASSERT_TRUE(fs::exists(folder + "/A/a"));
    DIR* listing = ::opendir(folder.c_str());
    ASSERT_EQ(test::cliStatus({"rename", catalogue.path, "A", "B"}), 0);
    EXPECT_TRUE(holdsSoon([&] { return !fs::exists(folder + "/A") && fs::exists(folder + "/B/a"); }));
    ASSERT_EQ(test::cliStatus({"compact", catalogue.path}), 0);
    ASSERT_EQ(test::cliStatus({"rename", catalogue.path, "B", "C"}), 0);
    EXPECT_TRUE(holdsSoon([&] { return fs::exists(folder + "/C/a"); }));
    fs::rename(catalogue.path, catalogue.path + "-away");
    EXPECT_TRUE(holdsSoon([&] {
        std::error_code failed;
        fs::directory_iterator(folder, failed);
        return failed.value() == EIO;
    }));
    ::closedir(listing);
}

TEST_F(Mounted, RefusesWhatIsNoEmptyFolder) {
    fs::create_directory(folder + "/something");
    EXPECT_EQ(test::cliStatus({"mount", catalogue.path, folder}), 2);
    EXPECT_EQ(test::cliStatus({"mount", catalogue.path, catalogue.path}), 2);
    EXPECT_EQ(test::cliStatus({"mount", catalogue.path, folder + "/missing"}), 2);
    fs::remove(folder + "/something");
    EXPECT_EQ(test::cliStatus({"mount", disc, folder}), 3);
    EXPECT_FALSE(isMounted());
}

TEST_F(Mounted, EndsCleanlyWhenToldTo) {
    const std::string throughItself = folder + "/../" + fs::path(catalogue.path).filename().string();
    EXPECT_EQ(test::cliStatus({"mount", throughItself, folder}), 0);
    EXPECT_TRUE(fs::is_empty(folder)) << "it does not wait for itself";
    unmount();
    for (const int signal : {SIGINT, SIGTERM}) {
        test::Program program({ZARQUELIN_CLI, "mount", "-f", catalogue.path, folder});
        ASSERT_TRUE(holdsSoon([&] { return isMounted() && fs::is_empty(folder); }));
        program.send(signal);
        EXPECT_EQ(program.wait(), 0);
        EXPECT_FALSE(isMounted());
    }
}

// The medium is another mount whose program was stopped.
TEST_F(Mounted, IsWalkedAndEndsWhileAMediumHangs) {
    test::writeFile(disc + "/file", "x");
    ASSERT_EQ(test::cliStatus({"scan", catalogue.path, "Disco", disc}), 0);
    const std::string medium = catalogue.folder / "medium";
    fs::create_directory(medium);
    test::Program hanging({ZARQUELIN_CLI, "mount", "-f", catalogue.path, medium});
    ASSERT_TRUE(holdsSoon([&] { return fs::exists(medium + "/Disco/file"); }));
    ::setenv("ZARQUELIN_DRIVES", ("E=" + medium + "/Disco,optical").c_str(), 1);
    test::Program program({ZARQUELIN_CLI, "mount", "-f", catalogue.path, folder});
    ASSERT_TRUE(holdsSoon([&] { return fs::exists(folder + "/Disco/file"); }));
    hanging.send(SIGSTOP);
    std::thread reader([&] { EXPECT_LT(::open((folder + "/Disco/file").c_str(), O_RDONLY), 0); });
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(folder), {}), 2);
    program.send(SIGTERM);
    EXPECT_EQ(program.wait(), 0);
    hanging.send(SIGCONT);
    reader.join();
    hanging.send(SIGTERM);
    EXPECT_EQ(hanging.wait(), 0);
}

}  // namespace
