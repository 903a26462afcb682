#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drives.h"

namespace platform {

// One line of the kernel's mount table.
struct Mount {
    std::string device;  // "major:minor" of the file system
    std::string root;    // the part of the file system that is mounted, "/" when it is the whole of it
    std::string mountPoint;
    std::string fileSystem;  // "ext4", "nfs4", "fuse.sshfs"
    std::string source;      // "/dev/sda1", "server:/export"
};

// The text of /proc/self/mountinfo in mount order; lines that cannot be understood are skipped.
[[nodiscard]] std::vector<Mount> parseMountInfo(std::string_view text);

// What only the machine can tell about a mount.
struct MountProbe {
    // Asked for local parts of file systems only; a whole one is mounted on a folder. To look at what the
    // network has mounted could wait for ever.
    std::function<bool(const std::string& mountPoint)> isFolder;
    std::function<DriveType(const Mount& mount)>
        localType;  // asked for file systems that are not on the network
};
[[nodiscard]] MountProbe machineProbe();

// Drive letters for the file systems of a mount table. A file system has one letter, however often it is
// mounted; pseudo file systems and mounts onto single files have none. Those behind `Z:` go without.
[[nodiscard]] std::vector<Drive> assignLetters(const std::vector<Mount>& mounts, const MountProbe& probe);

// The type of a block device by its folder under /sys: "/sys/dev/block/8:1". Fixed when nothing else is
// known.
[[nodiscard]] DriveType blockDeviceType(const std::string& deviceFolder);

}  // namespace platform
