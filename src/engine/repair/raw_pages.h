#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace engine {

// The pages of a database file that may be damaged, read past SQLite. Page numbers count from 1, as SQLite's
// do; the last page may be cut short and is filled up with zeros.
class RawPages {
  public:
    using Page = std::vector<unsigned char>;

    // Nothing when the file cannot be read at all.
    [[nodiscard]] static std::optional<RawPages> open(const std::string& path);
    RawPages(RawPages&& other) noexcept;
    RawPages& operator=(RawPages&&) = delete;
    ~RawPages();

    [[nodiscard]] std::uint32_t count() const { return m_count; }
    [[nodiscard]] std::uint32_t pageSize() const { return m_pageSize; }
    [[nodiscard]] std::uint32_t usableSize() const { return m_pageSize - m_reserved; }

    // Empty when there is no such page.
    [[nodiscard]] Page read(std::uint32_t number) const;

    // The pages that the file's own list calls free, as far as the list can be followed.
    [[nodiscard]] std::set<std::uint32_t> freePages() const;

  private:
    explicit RawPages(int file) : m_file(file) {}
    void readHeader();

    int m_file;
    std::uint32_t m_pageSize = 0;
    std::uint32_t m_reserved = 0;
    std::uint32_t m_count = 0;
};

// Big-endian numbers; `at` must leave room for them.
[[nodiscard]] std::uint32_t twoBytes(const RawPages::Page& page, std::size_t at);
[[nodiscard]] std::uint32_t fourBytes(const RawPages::Page& page, std::size_t at);

}  // namespace engine
