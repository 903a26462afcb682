#include "mount/medium_requests.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <new>

#include "platform/drives.h"

namespace mount {
namespace {

constexpr std::size_t threads = 4;

// The bytes that there are, up to the size asked for.
void answerBytes(fuse_req_t request, int descriptor, std::size_t size, off_t offset) {
    const std::unique_ptr<char[]> buffer(new (std::nothrow) char[size]);
    int failure = buffer ? 0 : ENOMEM;
    std::size_t have = 0;
    while (failure == 0 && have < size) {
        const ssize_t got =
            ::pread(descriptor, buffer.get() + have, size - have, offset + static_cast<off_t>(have));
        if (got == 0) break;
        if (got > 0)
            have += static_cast<std::size_t>(got);
        else if (errno != EINTR)
            failure = errno;
    }
    if (failure == 0)
        fuse_reply_buf(request, buffer.get(), have);
    else
        fuse_reply_err(request, failure);
}

}  // namespace

MediumRequests::MediumRequests(std::string folder)
    : m_folder(std::move(folder)), m_files(platform::Drives::current) {}

void MediumRequests::start(fuse_session* session) {
    m_session = session;
    m_workers.start(threads);
}

void MediumRequests::open(fuse_req_t request, NodeId id, const core::CataloguedFile& file,
                          const fuse_file_info& info) {
    m_workers.add([this, request, id, file, info] {
        const auto descriptor = find(file);
        if (descriptor)
            opened(request, id, *descriptor, info);
        else
            fuse_reply_err(request, descriptor.error());
    });
}

std::expected<int, int> MediumRequests::find(const core::CataloguedFile& file) try {
    std::call_once(m_knowsItself, [this] {
        struct stat own {};
        if (::stat(m_folder.c_str(), &own) == 0) m_files.exclude(own.st_dev);
    });
    return m_files.open(file);
} catch (const std::bad_alloc&) {
    return std::unexpected(ENOMEM);
}

void MediumRequests::opened(fuse_req_t request, NodeId id, int descriptor, fuse_file_info info) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) {
        fuse_reply_err(request, errno);
        ::close(descriptor);
        return;
    }
    {
        const std::scoped_lock guard(m_lock);
        OpenFile& open = m_open[id];
        open.size = status.st_size;
        ++open.times;
    }
    // Reading ends where the kernel believes the file to end.
    fuse_lowlevel_notify_inval_inode(m_session, id, -1, 0);
    info.fh = static_cast<std::uint64_t>(descriptor);
    if (fuse_reply_open(request, &info) != 0) close(id, descriptor);
}

void MediumRequests::read(fuse_req_t request, std::size_t size, off_t offset, const fuse_file_info& info) {
    m_workers.add([request, size, offset, descriptor = static_cast<int>(info.fh)] {
        answerBytes(request, descriptor, size, offset);
    });
}

void MediumRequests::release(fuse_req_t request, NodeId id, const fuse_file_info& info) {
    m_workers.add([this, request, id, descriptor = static_cast<int>(info.fh)] {
        close(id, descriptor);
        fuse_reply_err(request, 0);
    });
}

void MediumRequests::close(NodeId id, int descriptor) {
    ::close(descriptor);
    const std::scoped_lock guard(m_lock);
    const auto open = m_open.find(id);
    if (open != m_open.end() && --open->second.times == 0) m_open.erase(open);
}

std::optional<std::int64_t> MediumRequests::sizeOf(NodeId id) {
    const std::scoped_lock guard(m_lock);
    const auto open = m_open.find(id);
    return open == m_open.end() ? std::nullopt : std::optional(open->second.size);
}

}  // namespace mount
