#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <variant>

#include "engine/format.h"
#include "engine/repair/raw_pages.h"

namespace engine {

// One row as it lies in a page of the table.
struct RawRow {
    using Field = std::variant<std::monostate, std::int64_t, double, std::string>;
    std::int64_t rowid = 0;
    std::array<Field, columns.size()> fields;
};

// What decoding may cost: in a file made for it, thousands of cells lead to one cell or to one endless chain
// of pages. Damage makes a few do so, which a small multiple of an honest file's cost allows.
class DecodingLimit {
  public:
    explicit DecodingLimit(const RawPages& pages) : m_pageSize(pages.pageSize()) {}

    void beginPage() { m_left = timesEach * std::uint64_t{m_pageSize}; }
    [[nodiscard]] bool allowsBytes(std::uint64_t bytes) {
        if (bytes > m_left) return false;
        m_left -= bytes;
        return true;
    }
    [[nodiscard]] bool allowsOverflowPage(std::uint32_t number) { return ++m_reads[number] <= timesEach; }

  private:
    static constexpr unsigned timesEach = 8;
    std::uint32_t m_pageSize;
    std::uint64_t m_left = 0;                             // of the page's own bytes
    std::unordered_map<std::uint32_t, unsigned> m_reads;  // of each page as a part of a longer row
};

// The row whose cell begins at `at` of a leaf page. Nothing when what lies there is no whole row of our
// table.
[[nodiscard]] std::optional<RawRow> rowAt(const RawPages& pages, const RawPages::Page& page, std::size_t at,
                                          DecodingLimit& limit);

}  // namespace engine
