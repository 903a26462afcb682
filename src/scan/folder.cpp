#include "scan/folder.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

namespace scan {
namespace {

constexpr int openFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;

constexpr std::array<decltype(statfs::f_type), 16> kernelFileSystems{
    PROC_SUPER_MAGIC, SYSFS_MAGIC,        CGROUP_SUPER_MAGIC, CGROUP2_SUPER_MAGIC,
    DEBUGFS_MAGIC,    TRACEFS_MAGIC,      SECURITYFS_MAGIC,   SELINUX_MAGIC,
    SMACK_MAGIC,      PSTOREFS_MAGIC,     EFIVARFS_MAGIC,     BPF_FS_MAGIC,
    BINFMTFS_MAGIC,   DEVPTS_SUPER_MAGIC, NSFS_MAGIC,         HUGETLBFS_MAGIC};

}  // namespace

Folder::Folder(int descriptor) {
    if (descriptor < 0) return;
    m_stream.reset(fdopendir(descriptor));
    if (!m_stream) close(descriptor);
}

Folder Folder::at(const std::string& nativePath) {
    return Folder(open(nativePath.c_str(), openFlags));
}

Folder Folder::subfolder(const char* name) const {
    return Folder(openat(dirfd(m_stream.get()), name, openFlags | O_NOFOLLOW));
}

bool Folder::isOfKernel() const {
    struct statfs status {};
    return fstatfs(dirfd(m_stream.get()), &status) == 0 &&
           std::ranges::find(kernelFileSystems, status.f_type) != kernelFileSystems.end();
}

bool Folder::readAll(Listing& listing, const Exclusion& exclusion) {
    if (!m_stream) return false;
    for (;;) {
        errno = 0;
        const dirent* entry = readdir(m_stream.get());
        if (!entry) return errno == 0;
        if (!exclusion.excludes(entry->d_name)) add(*entry, listing);
    }
}

void Folder::add(const dirent& entry, Listing& listing) const {
    const std::string_view name(entry.d_name);
    if (name == "." || name == "..") return;

    unsigned char type = entry.d_type;
    struct stat status {};
    if (type == DT_UNKNOWN && fstatat(dirfd(m_stream.get()), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        type = IFTODT(status.st_mode);

    const bool isLink = type == DT_LNK;
    const bool leadsToFolder =
        isLink && fstatat(dirfd(m_stream.get()), entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
    if (type == DT_DIR || leadsToFolder)
        listing.addFolder(name, isLink);
    else
        listing.addFile(name, isLink);
}

std::optional<ItemFacts> Folder::facts(const char* name, bool isLink) const {
    struct stat status {};
    const int descriptor = dirfd(m_stream.get());
    if ((isLink && fstatat(descriptor, name, &status, 0) == 0) ||
        fstatat(descriptor, name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        return ItemFacts{status.st_mtim.tv_sec, status.st_size};
    if (errno == ENOENT) return std::nullopt;
    return ItemFacts{.known = false};
}

}  // namespace scan
