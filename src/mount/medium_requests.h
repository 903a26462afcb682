#pragma once

#define FUSE_USE_VERSION 312
#include <fuse_lowlevel.h>

#include <chrono>
#include <expected>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "mount/directory.h"
#include "mount/medium_files.h"
#include "mount/workers.h"

namespace mount {

// Answers the requests that go to a medium, on threads of their own: they may take as long as it does.
class MediumRequests {
  public:
    // `folder`: where the file system is mounted.
    explicit MediumRequests(std::string folder);

    // Throws std::system_error when there is no thread to be had.
    void start(fuse_session* session);
    // False when a medium still holds up some of the threads after the patience.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience) { return m_workers.finish(patience); }

    void open(fuse_req_t request, NodeId id, const core::CataloguedFile& file, const fuse_file_info& info);
    void read(fuse_req_t request, std::size_t size, off_t offset, const fuse_file_info& info);
    void release(fuse_req_t request, NodeId id, const fuse_file_info& info);

    // How many bytes a file has on its medium, of which the catalogue only knows kilobytes; nothing when it
    // is not open.
    [[nodiscard]] std::optional<std::int64_t> sizeOf(NodeId id);

  private:
    struct OpenFile {
        std::int64_t size = 0;
        int times = 0;
    };
    [[nodiscard]] std::expected<int, int> find(const core::CataloguedFile& file);
    void opened(fuse_req_t request, NodeId id, int descriptor, fuse_file_info info);
    void close(NodeId id, int descriptor);

    std::string m_folder;
    fuse_session* m_session = nullptr;
    MediumFiles m_files;
    std::once_flag m_knowsItself;
    std::mutex m_lock;
    std::map<NodeId, OpenFile> m_open;
    Workers m_workers;  // which use what stands above
};

}  // namespace mount
