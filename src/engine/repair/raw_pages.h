#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "engine/error.h"

struct sqlite3;
struct sqlite3_file;

namespace engine {

// The pages of a database file that may be damaged, as they lie in the file that SQLite has opened. Page
// numbers count from 1, as SQLite's do; the last page may be cut short and is filled up with zeros.
class RawPages {
  public:
    using Page = std::vector<unsigned char>;

    // `database` must outlive it. A file without a whole header has no pages.
    explicit RawPages(sqlite3* database);
    ~RawPages();
    RawPages(const RawPages&) = delete;
    RawPages& operator=(const RawPages&) = delete;

    // The disk's failure, if there was one: what was read until now may lack something.
    [[nodiscard]] const std::optional<Error>& failure() const { return m_failure; }

    [[nodiscard]] std::uint32_t count() const { return m_count; }
    [[nodiscard]] std::uint32_t pageSize() const { return m_pageSize; }
    [[nodiscard]] std::uint32_t usableSize() const { return m_pageSize - m_reserved; }

    // Empty when there is no such page.
    [[nodiscard]] Page read(std::uint32_t number) const;

    // The first page from `number` on that was ever written; 0 when there is none. A damaged journal can
    // leave a file of many terabytes that is nearly all hole.
    [[nodiscard]] std::uint32_t nextWritten(std::uint32_t number) const;

    // The pages that the file's own list calls free, as far as the list can be followed.
    [[nodiscard]] std::set<std::uint32_t> freePages() const;

  private:
    [[nodiscard]] bool readAt(std::int64_t offset, Page& bytes) const;

    sqlite3_file* m_file = nullptr;
    int m_descriptor = -1;  // of our own, which only looks for holes
    mutable std::optional<Error> m_failure;
    std::uint32_t m_pageSize = 0;
    std::uint32_t m_reserved = 0;
    std::uint32_t m_count = 0;
};

// Big-endian numbers; `at` must leave room for them.
[[nodiscard]] std::uint32_t twoBytes(const RawPages::Page& page, std::size_t at);
[[nodiscard]] std::uint32_t fourBytes(const RawPages::Page& page, std::size_t at);

}  // namespace engine
