#include "platform/mount_table.h"

#include <algorithm>
#include <array>
#include <map>

#include "platform/files.h"

namespace platform {
namespace {

constexpr std::array<std::string_view, 20> networkFileSystems{
    "9p",    "afs",    "ceph",           "cifs",        "coda",      "fuse.curlftpfs", "fuse.davfs",
    "davfs", "lustre", "fuse.glusterfs", "fuse.rclone", "fuse.s3fs", "fuse.smbnetfs",  "fuse.sshfs",
    "ncpfs", "nfs",    "nfs4",           "smb3",        "smbfs",     "vboxsf"};

// File systems of real storage whose source is no device file. The rest without one are the kernel's own.
constexpr std::array<std::string_view, 7> localWithoutDevice{
    "bcachefs", "fuse.encfs", "fuse.gocryptfs", "fuse.mergerfs", "ubifs", "virtiofs", "zfs"};

constexpr std::array<std::string_view, 2> opticalFileSystems{"iso9660", "udf"};

template <std::size_t N>
bool isOneOf(const std::string& fileSystem, const std::array<std::string_view, N>& names) {
    return std::ranges::find(names, fileSystem) != names.end();
}

// A field of the table, with its \ooo escapes (blank, tab, newline, backslash) undone.
std::string unescaped(std::string_view field) {
    const auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() &&
            std::all_of(&field[i + 1], &field[i + 1] + 3, isOctal)) {
            text += char((field[i + 1] - '0') << 6 | (field[i + 2] - '0') << 3 | (field[i + 3] - '0'));
            i += 3;
        } else {
            text += field[i];
        }
    }
    return text;
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (end > 0) parts.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

bool isPackageImage(const Mount& mount) {
    return mount.fileSystem == "squashfs";
}

bool isStorage(const Mount& mount) {
    if (mount.mountPoint == "/" || isOneOf(mount.fileSystem, networkFileSystems)) return true;
    if (isPackageImage(mount)) return false;
    return mount.source.starts_with("/dev/") || isOneOf(mount.fileSystem, localWithoutDevice);
}

DriveType typeOf(const Mount& mount, const MountProbe& probe) {
    if (isOneOf(mount.fileSystem, networkFileSystems)) return DriveType::Network;
    const DriveType type = probe.localType(mount);
    if (type == DriveType::Fixed && isOneOf(mount.fileSystem, opticalFileSystems)) return DriveType::Optical;
    return type;
}

bool isOnFolder(const Mount& mount, const MountProbe& probe) {
    return mount.root == "/" || isOneOf(mount.fileSystem, networkFileSystems) ||
           probe.isFolder(mount.mountPoint);
}

// The mounts that deserve a letter, in mount order.
std::vector<Mount> lettered(const std::vector<Mount>& mounts, const MountProbe& probe) {
    std::map<std::string, std::size_t> last;  // by mount point: what is mounted later hides what was there
    for (std::size_t i = 0; i < mounts.size(); ++i) last[mounts[i].mountPoint] = i;

    std::vector<Mount> chosen;
    std::map<std::string, std::size_t> byDevice;
    for (std::size_t i = 0; i < mounts.size(); ++i) {
        const Mount& mount = mounts[i];
        if (last[mount.mountPoint] != i || !isStorage(mount) || !isOnFolder(mount, probe)) continue;
        const auto [known, isNew] = byDevice.try_emplace(mount.device, chosen.size());
        if (isNew) {
            chosen.push_back(mount);
        } else if (Mount& other = chosen[known->second]; other.mountPoint != "/") {
            // A whole file system says more than a part of it, and nothing may take the root's letter.
            if (mount.mountPoint == "/" || (mount.root == "/" && other.root != "/")) other = mount;
        }
    }
    return chosen;
}

}  // namespace

std::vector<Mount> parseMountInfo(std::string_view text) {
    std::vector<Mount> mounts;
    for (const std::string& line : split(text, '\n')) {
        // id parent major:minor root mountpoint options [tags...] - type source options
        const std::vector<std::string> fields = split(line, ' ');
        const auto dash = std::ranges::find(fields, "-");
        if (dash - fields.begin() < 6 || fields.end() - dash < 3) continue;
        Mount mount{fields[2], unescaped(fields[3]), unescaped(fields[4]), dash[1], unescaped(dash[2])};
        if (mount.mountPoint.starts_with('/')) mounts.push_back(std::move(mount));
    }
    return mounts;
}

std::vector<Drive> assignLetters(const std::vector<Mount>& mounts, const MountProbe& probe) {
    std::vector<Drive> fixed, others;
    Drive root{'C', DriveType::Fixed, "/"};
    for (const Mount& mount : lettered(mounts, probe)) {
        const DriveType type = typeOf(mount, probe);
        if (mount.mountPoint == "/") {
            root.type = type;
        } else {
            (type == DriveType::Fixed ? fixed : others).push_back({'D', type, mount.mountPoint});
        }
    }
    std::ranges::sort(fixed, {}, &Drive::mountPoint);

    std::vector<Drive> drives{root};
    fixed.insert(fixed.end(), others.begin(), others.end());
    for (Drive& drive : fixed) {
        if (drives.back().letter == 'Z') break;
        drive.letter = char(drives.back().letter + 1);
        drives.push_back(drive);
    }
    return drives;
}

}  // namespace platform
