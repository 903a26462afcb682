#pragma once

#define FUSE_USE_VERSION 312
#include <fuse_lowlevel.h>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "mount/medium_requests.h"
#include "mount/tree.h"

namespace mount {

// Answers the kernel's requests. One thread asks the tree and answers what the catalogue can; what goes to a
// medium is answered by others.
class FileSystem {
  public:
    FileSystem(std::string catalogue, std::string folder);

    [[nodiscard]] static fuse_lowlevel_ops operations();

    [[nodiscard]] MediumRequests& media() { return m_media; }

  private:
    template <auto Method>
    struct Handler;

    void lookup(fuse_req_t request, fuse_ino_t folder, const char* name);
    void getattr(fuse_req_t request, fuse_ino_t id, fuse_file_info*);
    void opendir(fuse_req_t request, fuse_ino_t id, fuse_file_info* info);
    void readdir(fuse_req_t request, fuse_ino_t, std::size_t size, off_t offset, fuse_file_info* info);
    void readdirplus(fuse_req_t request, fuse_ino_t, std::size_t size, off_t offset, fuse_file_info* info);
    void releasedir(fuse_req_t request, fuse_ino_t, fuse_file_info* info);
    void open(fuse_req_t request, fuse_ino_t id, fuse_file_info* info);
    void read(fuse_req_t request, fuse_ino_t, std::size_t size, off_t offset, fuse_file_info* info);
    void release(fuse_req_t request, fuse_ino_t id, fuse_file_info* info);
    void statfs(fuse_req_t request, fuse_ino_t);
    void getxattr(fuse_req_t request, fuse_ino_t id, const char* name, std::size_t size);
    void listxattr(fuse_req_t request, fuse_ino_t id, std::size_t size);
    void forget(NodeId id, std::uint64_t times) { m_tree.known().forget(id, times); }

    // A listing under way; it goes on as it began when the catalogue changes.
    struct Listing {
        NodeId folder;
        std::shared_ptr<const Directory> directory;
    };
    void refresh();
    // The node, or nothing when the request was answered because there is none.
    [[nodiscard]] std::optional<Child> nodeOrAnswer(fuse_req_t request, NodeId id);
    [[nodiscard]] fuse_entry_param entryOf(const Child& child);
    [[nodiscard]] struct stat statusOf(const Child& child);
    template <class Add>
    void list(fuse_req_t request, std::size_t size, off_t offset, const fuse_file_info* info, Add add);

    Tree m_tree;
    std::chrono::steady_clock::time_point m_refreshed;
    std::map<std::uint64_t, Listing> m_listings;
    std::uint64_t m_lastListing = 0;
    MediumRequests m_media;
};

}  // namespace mount
