#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <filesystem>
#include <fstream>

#include "platform/files.h"
#include "platform/mount_table.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr int scsiOpticalDevice = 5;
constexpr int deepestStack = 8;  // encrypted volume on a logical volume on a disk...

int numberIn(const fs::path& file, int otherwise) {
    std::ifstream in(file);
    int number = otherwise;
    return in >> number ? number : otherwise;
}

DriveType diskType(fs::path disk, int depth) {
    std::error_code ignored;
    if (fs::exists(disk / "partition", ignored)) disk = disk.parent_path();
    if (disk.filename().string().starts_with("sr") || numberIn(disk / "device/type", 0) == scsiOpticalDevice)
        return DriveType::Optical;
    if (numberIn(disk / "removable", 0) == 1) return DriveType::Removable;
    // A mapped device is what the disk below it is.
    fs::directory_iterator slaves(disk / "slaves", ignored);
    if (!ignored && slaves != fs::directory_iterator() && depth < deepestStack) {
        const fs::path slave = fs::canonical(slaves->path(), ignored);
        if (!ignored) return diskType(slave, depth + 1);
    }
    return DriveType::Fixed;
}

// File systems such as btrfs show a number of their own in the mount table; then the source's device file
// tells.
std::string deviceNumber(const Mount& mount) {
    struct stat status {};
    if (!mount.source.starts_with("/dev/") || ::stat(mount.source.c_str(), &status) != 0 ||
        !S_ISBLK(status.st_mode))
        return mount.device;
    return std::to_string(major(status.st_rdev)) + ':' + std::to_string(minor(status.st_rdev));
}

}  // namespace

DriveType blockDeviceType(const std::string& deviceFolder) {
    std::error_code missing;
    const fs::path disk = fs::canonical(deviceFolder, missing);
    return missing ? DriveType::Fixed : diskType(disk, 0);
}

MountProbe machineProbe() {
    return {FolderExists,
            [](const Mount& mount) { return blockDeviceType("/sys/dev/block/" + deviceNumber(mount)); }};
}

}  // namespace platform
