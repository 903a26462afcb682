#include "platform/drives.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <future>
#include <memory>

#include "platform/answering.h"
#include "platform/mount_table.h"
#include "support/temporary_folder.h"

namespace platform {

bool operator==(const Drive& a, const Drive& b) {
    return a.letter == b.letter && a.type == b.type && a.mountPoint == b.mountPoint;
}

}  // namespace platform

namespace {

using platform::Drive;
using platform::Drives;
using platform::DriveType;

TEST(Drives, OverrideReplacesTheMachinesList) {
    const Drives drives =
        Drives::parse("C=/;e=/mnt//a/,optical;x;E=/twice;F=relative;G=/odd, name/;H=,optical;I=/n,network");
    const std::vector<Drive> expected{{'C', DriveType::Fixed, "/"},
                                      {'E', DriveType::Optical, "/mnt/a"},
                                      {'G', DriveType::Fixed, "/odd, name"},
                                      {'H', DriveType::Optical, ""},
                                      {'I', DriveType::Network, "/n"}};
    EXPECT_EQ(drives.list(), expected);
    EXPECT_EQ(drives.type("e:"), DriveType::Optical);
    for (const char* none : {"Z:", ""}) EXPECT_EQ(drives.type(none), DriveType::Absent);
}

TEST(Drives, PathsGoBothWays) {
    const Drives drives = Drives::parse("C=/;D=/mnt/a;E=/mnt/a/b;H=,optical");
    const std::pair<std::string, std::string> pairs[]{
        {"/", "C:\\"},
        {"/home/ana", "C:\\home\\ana"},
        {"/mnt/a", "D:\\"},
        {"/mnt/ab/x", "C:\\mnt\\ab\\x"},
        {"/mnt/a/x", "D:\\x"},
        {"/mnt/a/b/fotos/2003", "E:\\fotos\\2003"},
        {"/mnt/a/back\\slash/caf\xE9", "D:\\back\uF05Cslash\\caf\uF0E9"},
    };
    for (const auto& [native, drive] : pairs) {
        EXPECT_EQ(drives.toDrivePath(native), drive);
        EXPECT_EQ(drives.toNativePath(drive), native);
    }
    EXPECT_EQ(drives.toDrivePath("//mnt//a/x/"), "D:\\x");
    EXPECT_EQ(drives.toNativePath("d:\\x"), "/mnt/a/x");
    EXPECT_EQ(drives.toNativePath("D:"), "/mnt/a");
    EXPECT_EQ(drives.toNativePath("C:\\\\song.mp3"), "/song.mp3");
    EXPECT_EQ(drives.toDrivePath("relative") + Drives::parse("D=/mnt/a").toDrivePath("/home"), "");
}

TEST(Drives, NothingLeadsOutOfADrive) {
    const Drives drives = Drives::parse("C=/;D=/mnt/a;H=,optical");
    using namespace std::string_literals;
    for (const std::string& path : {"D:\\..\\x"s, "D:\\a\\.\\b"s, "D:\\a\\.."s, "D:\\a/../b"s, "D:\\a\0b"s,
                                    "D:x"s, "Z:\\x"s, "H:\\x"s, "\\x"s, ""s})
        EXPECT_EQ(drives.toNativePath(path), std::nullopt) << path;
    EXPECT_EQ(drives.toNativePath("D:\\...\\..a"), "/mnt/a/.../..a");
}

// A desktop with a container's clutter, in mount order.
constexpr const char* mountInfo =
    "22 27 0:21 / /proc rw - proc proc rw\n"
    "24 27 0:6 / /dev rw - devtmpfs udev rw\n"
    "25 27 0:30 / /tmp rw - tmpfs tmpfs rw\n"
    "27 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda1 rw\n"
    "30 27 254:0 /var/hosts /etc/hosts rw - ext4 /dev/vda1 rw\n"
    "31 27 254:0 /srv /srv/bind rw - ext4 /dev/vda1 rw\n"
    "33 27 11:0 / /media/ana/DISC\\040ONE ro - iso9660 /dev/sr0 ro\n"
    "34 27 0:50 / /mnt/nas rw shared:9 master:2 - nfs4 nas:/export rw\n"
    "35 27 8:17 / /media/ana/stick rw - vfat /dev/sdb1 rw\n"
    "36 27 8:2 /part /data/part rw - ext4 /dev/sda2 rw\n"
    "37 27 8:2 / /data rw - ext4 /dev/sda2 rw\n"
    "38 27 0:55 /@home /back\\134up rw - btrfs /dev/sdc1 rw\n"
    "39 27 7:3 / /snap/core/1 ro - squashfs /dev/loop3 ro\n"
    "40 27 0:60 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
    "41 27 8:3 / /hidden rw - ext4 /dev/sda3 rw\n"
    "42 27 0:61 / /hidden rw - tmpfs tmpfs rw\n"
    "nonsense\n";

TEST(MountTable, RealFileSystemsGetLettersInOrder) {
    const platform::MountProbe probe{[](const std::string& mountPoint) { return mountPoint != "/etc/hosts"; },
                                     [](const platform::Mount& mount) {
                                         return mount.device == "8:17" ? DriveType::Removable
                                                                       : DriveType::Fixed;
                                     }};
    const std::vector<Drive> expected{
        {'C', DriveType::Fixed, "/"},          {'D', DriveType::Fixed, "/back\\up"},
        {'E', DriveType::Fixed, "/data"},      {'F', DriveType::Optical, "/media/ana/DISC ONE"},
        {'G', DriveType::Network, "/mnt/nas"}, {'H', DriveType::Removable, "/media/ana/stick"}};
    EXPECT_EQ(assignLetters(platform::parseMountInfo(mountInfo), probe), expected);

    std::string many;
    for (int i = 100; i < 140; ++i)
        many += "1 1 8:" + std::to_string(i) + " / /m" + std::to_string(i) + " rw - ext4 /dev/x rw\n";
    const auto drives = assignLetters(platform::parseMountInfo(many), probe);
    ASSERT_EQ(drives.size(), 24U);
    EXPECT_EQ(drives.back(), (Drive{'Z', DriveType::Fixed, "/m122"}));
}

TEST(MountTable, BlockDevicesAreJudgedByTheirDisk) {
    const test::TemporaryFolder sys;
    const std::pair<const char*, const char*> files[]{
        {"sda/removable", "0\n"},      {"sda/sda1/partition", "1\n"}, {"sdb/removable", "1\n"},
        {"sdb/sdb1/partition", "1\n"}, {"odd/device/type", "5\n"},    {"odd/removable", "1\n"},
        {"sr0/removable", "1\n"},      {"dm-0/removable", "0\n"},     {"dm-0/slaves/none", ""}};
    for (const auto& [name, text] : files) {
        std::filesystem::create_directories(std::filesystem::path(sys / name).parent_path());
        test::writeFile(sys / name, text);
    }
    std::filesystem::remove(sys / "dm-0/slaves/none");
    std::filesystem::create_directory_symlink(sys / "sdb/sdb1", sys / "dm-0/slaves/sdb1");

    const std::pair<const char*, DriveType> expected[]{
        {"sda/sda1", DriveType::Fixed}, {"sdb/sdb1", DriveType::Removable}, {"odd", DriveType::Optical},
        {"sr0", DriveType::Optical},    {"dm-0", DriveType::Removable},     {"missing", DriveType::Fixed}};
    for (const auto& [device, type] : expected)
        EXPECT_EQ(platform::blockDeviceType(sys / device), type) << device;
}

// What hangs on the network is not touched to give it a letter, and asked once, for a moment, when it is
// needed.
TEST(Drives, ADeadNetworkDriveHangsNobody) {
    const platform::MountProbe probe{[](const std::string& mountPoint) {
                                         EXPECT_EQ(mountPoint, "/srv/bind") << "was looked at";
                                         return true;
                                     },
                                     [](const platform::Mount&) { return DriveType::Fixed; }};
    const auto drives =
        assignLetters(platform::parseMountInfo("27 1 254:0 / / rw - ext4 /dev/vda1 rw\n"
                                               "34 27 0:50 /x /mnt/nas rw - nfs4 nas:/e rw\n"
                                               "35 27 8:1 / /mnt/disk rw - ext4 /dev/sda1 rw\n"
                                               "31 27 8:2 /srv /srv/bind rw - ext4 /dev/sda2 rw\n"),
                      probe);
    EXPECT_EQ(drives.size(), 4U);

    std::promise<void> release;
    std::shared_future<void> released = release.get_future();
    const auto looks = std::make_shared<std::atomic<int>>(0);  // of threads that are left behind
    const auto hang = [looks, released](const std::string&) {
        ++*looks;
        released.wait();
    };
    using namespace std::chrono_literals;
    EXPECT_FALSE(platform::answersInTime("/dead", 10ms, hang));
    EXPECT_FALSE(platform::answersInTime("/dead", 10ms, hang));
    EXPECT_LE(*looks, 1) << "while the first look hangs there is no second";
    release.set_value();
    EXPECT_TRUE(platform::answersInTime("/"));
}

TEST(Drives, ThisMachineHasItsRootUnderC) {
    ::unsetenv("ZARQUELIN_DRIVES");
    const Drives drives = Drives::current();
    ASSERT_FALSE(drives.list().empty());
    EXPECT_EQ(drives.list()[0].mountPoint, "/");
    const std::string here = std::filesystem::current_path();
    EXPECT_EQ(drives.toNativePath(drives.toDrivePath(here)), here);
    ::setenv("ZARQUELIN_DRIVES", "Q=/q", 1);
    EXPECT_EQ(Drives::current().list(), (std::vector<Drive>{{'Q', DriveType::Fixed, "/q"}}));
    ::unsetenv("ZARQUELIN_DRIVES");
}

}  // namespace
