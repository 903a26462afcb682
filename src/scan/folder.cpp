#include "scan/folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace scan {
namespace {

constexpr int openFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;

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
