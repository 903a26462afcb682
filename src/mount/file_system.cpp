#include "mount/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

#include "core/serial_date.h"

namespace mount {
namespace {

// A change of the catalogue shows after both of them at the latest.
constexpr std::chrono::milliseconds betweenLooks{100};
constexpr double keptByKernel = 0.8;  // seconds

constexpr const char* noteAttribute = "user.comment";
constexpr std::uint64_t noDescriptor = std::numeric_limits<std::uint64_t>::max();
constexpr off_t dotEntries = 2;
constexpr std::int64_t bytesInKilobyte = 1024;
constexpr std::int64_t bytesInBlock = 512;

mode_t modeOf(Kind kind) {
    return kind == Kind::Unit || kind == Kind::Folder ? S_IFDIR | 0555 : S_IFREG | 0444;
}

struct stat statusOf(NodeId id, Kind kind, std::int64_t time) {
    static const uid_t user = ::getuid();
    static const gid_t group = ::getgid();
    struct stat status {};
    status.st_ino = id;
    status.st_mode = modeOf(kind);
    status.st_nlink = 1;  // of a folder: not told
    status.st_uid = user;
    status.st_gid = group;
    status.st_atim.tv_sec = status.st_mtim.tv_sec = status.st_ctim.tv_sec = time;
    status.st_blksize = 128 * bytesInKilobyte;
    return status;
}

void answerAttribute(fuse_req_t request, std::string_view value, std::size_t size) {
    if (size == 0)
        fuse_reply_xattr(request, value.size());
    else if (size < value.size())
        fuse_reply_err(request, ERANGE);
    else
        fuse_reply_buf(request, value.data(), value.size());
}

// Only a mount that was made writable afterwards gets as far as this.
void refuse(fuse_req_t request, auto...) {
    fuse_reply_err(request, EROFS);
}

}  // namespace

template <class... Values, void (FileSystem::*Method)(fuse_req_t, Values...)>
struct FileSystem::Handler<Method> {
    static void run(fuse_req_t request, Values... values) {
        try {
            (static_cast<FileSystem*>(fuse_req_userdata(request))->*Method)(request, values...);
        } catch (const std::bad_alloc&) {
            fuse_reply_err(request, ENOMEM);
        }
    }
};

fuse_lowlevel_ops FileSystem::operations() {
    fuse_lowlevel_ops operations{};
    operations.lookup = Handler<&FileSystem::lookup>::run;
    operations.getattr = Handler<&FileSystem::getattr>::run;
    operations.opendir = Handler<&FileSystem::opendir>::run;
    operations.readdir = Handler<&FileSystem::readdir>::run;
    operations.readdirplus = Handler<&FileSystem::readdirplus>::run;
    operations.releasedir = Handler<&FileSystem::releasedir>::run;
    operations.open = Handler<&FileSystem::open>::run;
    operations.read = Handler<&FileSystem::read>::run;
    operations.release = Handler<&FileSystem::release>::run;
    operations.statfs = Handler<&FileSystem::statfs>::run;
    operations.getxattr = Handler<&FileSystem::getxattr>::run;
    operations.listxattr = Handler<&FileSystem::listxattr>::run;
    operations.forget = [](fuse_req_t request, fuse_ino_t id, std::uint64_t times) {
        static_cast<FileSystem*>(fuse_req_userdata(request))->forget(id, times);
        fuse_reply_none(request);
    };
    operations.forget_multi = [](fuse_req_t request, std::size_t count, fuse_forget_data* forgets) {
        auto& files = *static_cast<FileSystem*>(fuse_req_userdata(request));
        for (const fuse_forget_data& each : std::span(forgets, count)) files.forget(each.ino, each.nlookup);
        fuse_reply_none(request);
    };
    operations.create = refuse;
    operations.write = refuse;
    operations.setattr = refuse;
    operations.mknod = refuse;
    operations.mkdir = refuse;
    operations.unlink = refuse;
    operations.rmdir = refuse;
    operations.symlink = refuse;
    operations.link = refuse;
    operations.rename = refuse;
    operations.setxattr = refuse;
    operations.removexattr = refuse;
    operations.fallocate = refuse;
    return operations;
}

FileSystem::FileSystem(std::string catalogue, std::string folder)
    : m_tree(std::move(catalogue)), m_media(std::move(folder)) {}

void FileSystem::refresh() {
    const auto now = std::chrono::steady_clock::now();
    if (now - m_refreshed < betweenLooks) return;
    (void)m_tree.refresh();  // where that fails, so does what is asked next
    m_refreshed = std::chrono::steady_clock::now();
}

struct stat FileSystem::statusOf(const Child& child) {
    const Row& row = child.row;
    const std::int64_t time = row.kind == Kind::Unit ? m_tree.changed() : core::timeOfSerial(row.fecha);
    struct stat status = mount::statusOf(child.id, row.kind, time);
    if (row.kind != Kind::File) return status;
    status.st_size = m_media.sizeOf(child.id).value_or(row.kilobytes * bytesInKilobyte);
    status.st_blocks = (status.st_size + bytesInBlock - 1) / bytesInBlock;
    return status;
}

fuse_entry_param FileSystem::entryOf(const Child& child) {
    fuse_entry_param entry{};
    entry.ino = child.id;
    entry.attr = statusOf(child);
    entry.attr_timeout = entry.entry_timeout = keptByKernel;
    return entry;
}

std::optional<Child> FileSystem::nodeOrAnswer(fuse_req_t request, NodeId id) {
    refresh();
    auto node = m_tree.node(id);
    if (!node || !*node) {
        fuse_reply_err(request, node ? ENOENT : EIO);
        return std::nullopt;
    }
    return std::move(*node);
}

void FileSystem::lookup(fuse_req_t request, fuse_ino_t folder, const char* name) {
    refresh();
    const auto found = m_tree.find(folder, name);
    if (!found || !*found) {
        fuse_reply_err(request, found ? ENOENT : EIO);
        return;
    }
    const fuse_entry_param entry = entryOf(**found);
    m_tree.known().remember(entry.ino, folder);
    if (fuse_reply_entry(request, &entry) != 0) forget(entry.ino, 1);
}

void FileSystem::getattr(fuse_req_t request, fuse_ino_t id, fuse_file_info*) {
    if (id == rootId) {
        refresh();
        const struct stat status = mount::statusOf(id, Kind::Folder, m_tree.changed());
        fuse_reply_attr(request, &status, keptByKernel);
    } else if (const auto node = nodeOrAnswer(request, id)) {
        const struct stat status = statusOf(*node);
        fuse_reply_attr(request, &status, keptByKernel);
    }
}

void FileSystem::opendir(fuse_req_t request, fuse_ino_t id, fuse_file_info* info) {
    refresh();
    const auto directory = m_tree.directory(id);
    if (!directory || !*directory) {
        fuse_reply_err(request, directory ? ENOENT : EIO);
        return;
    }
    info->fh = ++m_lastListing;
    m_listings[info->fh] = {id, *directory};
    if (fuse_reply_open(request, info) != 0) m_listings.erase(info->fh);
}

// A listing's names from an offset on, as many as `add` takes: "." and "..", then the children.
template <class Add>
void FileSystem::list(fuse_req_t request, std::size_t size, off_t offset, const fuse_file_info* info,
                      Add add) {
    const Listing& listing = m_listings.at(info->fh);
    const auto buffer = std::make_unique_for_overwrite<char[]>(size);
    std::size_t used = 0;
    const auto end = static_cast<off_t>(listing.directory->size()) + dotEntries;
    for (off_t at = offset; at < end; ++at) {
        engine::Result<Child> child = Child{};
        child->id = listing.folder;
        child->shown = at == 0 ? "." : "..";
        child->row.kind = Kind::Folder;
        if (at >= dotEntries) child = listing.directory->child(static_cast<std::size_t>(at - dotEntries));
        // Behind the names of this answer, the failure comes with the next one.
        if (!child && used == 0) {
            fuse_reply_err(request, EIO);
            return;
        }
        const std::size_t added = child ? add(buffer.get() + used, size - used, *child, at + 1) : size;
        if (added > size - used) break;
        used += added;
    }
    fuse_reply_buf(request, buffer.get(), used);
}

void FileSystem::readdir(fuse_req_t request, fuse_ino_t, std::size_t size, off_t offset,
                         fuse_file_info* info) {
    list(request, size, offset, info, [request](char* to, std::size_t room, const Child& child, off_t next) {
        struct stat status {};
        status.st_ino = child.id;
        status.st_mode = modeOf(child.row.kind);
        return fuse_add_direntry(request, to, room, child.shown.c_str(), &status, next);
    });
}

// The kernel counts a look-up for each name but "." and "..".
void FileSystem::readdirplus(fuse_req_t request, fuse_ino_t folder, std::size_t size, off_t offset,
                             fuse_file_info* info) {
    list(request, size, offset, info, [&](char* to, std::size_t room, const Child& child, off_t next) {
        const bool counts = next > dotEntries;
        fuse_entry_param entry{};
        if (counts) entry = entryOf(child);
        entry.attr.st_ino = child.id;
        entry.attr.st_mode = modeOf(child.row.kind);
        const std::size_t added =
            fuse_add_direntry_plus(request, to, room, child.shown.c_str(), &entry, next);
        if (added <= room && counts) m_tree.known().remember(child.id, folder);
        return added;
    });
}

void FileSystem::releasedir(fuse_req_t request, fuse_ino_t, fuse_file_info* info) {
    m_listings.erase(info->fh);
    fuse_reply_err(request, 0);
}

void FileSystem::open(fuse_req_t request, fuse_ino_t id, fuse_file_info* info) {
    if ((info->flags & O_ACCMODE) != O_RDONLY) {
        fuse_reply_err(request, EROFS);
        return;
    }
    const auto node = nodeOrAnswer(request, id);
    if (!node) return;
    if (node->row.kind != Kind::File) {
        info->fh = noDescriptor;  // it is empty
        fuse_reply_open(request, info);
        return;
    }
    const auto file = m_tree.fileOf(id);
    if (!file || !*file) {
        fuse_reply_err(request, file ? ENOENT : EIO);
        return;
    }
    m_media.open(request, id, **file, *info);
}

void FileSystem::read(fuse_req_t request, fuse_ino_t, std::size_t size, off_t offset, fuse_file_info* info) {
    if (info->fh == noDescriptor)
        fuse_reply_buf(request, nullptr, 0);
    else
        m_media.read(request, size, offset, *info);
}

void FileSystem::release(fuse_req_t request, fuse_ino_t id, fuse_file_info* info) {
    if (info->fh == noDescriptor)
        fuse_reply_err(request, 0);
    else
        m_media.release(request, id, *info);
}

void FileSystem::statfs(fuse_req_t request, fuse_ino_t) {
    refresh();
    const auto totals = m_tree.totals();
    if (!totals) {
        fuse_reply_err(request, EIO);
        return;
    }
    struct statvfs status {};
    status.f_bsize = status.f_frsize = bytesInKilobyte;
    status.f_blocks = static_cast<fsblkcnt_t>(totals->kilobytes);
    status.f_files = static_cast<fsfilcnt_t>(totals->items);
    status.f_namemax = 255;
    fuse_reply_statfs(request, &status);
}

void FileSystem::getxattr(fuse_req_t request, fuse_ino_t id, const char* name, std::size_t size) {
    if (id == rootId || std::strcmp(name, noteAttribute) != 0) {
        fuse_reply_err(request, ENODATA);
        return;
    }
    const auto node = nodeOrAnswer(request, id);
    if (!node) return;
    if (node->row.note.empty())
        fuse_reply_err(request, ENODATA);
    else
        answerAttribute(request, node->row.note, size);
}

void FileSystem::listxattr(fuse_req_t request, fuse_ino_t id, std::size_t size) {
    std::string names;
    if (id != rootId) {
        const auto node = nodeOrAnswer(request, id);
        if (!node) return;
        if (!node->row.note.empty()) names.append(noteAttribute).push_back('\0');
    }
    answerAttribute(request, names, size);
}

}  // namespace mount
