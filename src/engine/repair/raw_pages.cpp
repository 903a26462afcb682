#include "engine/repair/raw_pages.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bit>
#include <utility>

#include "engine/format.h"

namespace engine {

namespace {

constexpr std::size_t headerSize = 100;
constexpr std::size_t pageSizeAt = 16;
constexpr std::size_t reservedAt = 20;
constexpr std::size_t freeListAt = 32;

bool isPageSize(std::uint32_t size) {
    return size >= 512 && size <= 65536 && std::has_single_bit(size);
}

}  // namespace

std::uint32_t twoBytes(const RawPages::Page& page, std::size_t at) {
    return page[at] << 8 | page[at + 1];
}

std::uint32_t fourBytes(const RawPages::Page& page, std::size_t at) {
    return twoBytes(page, at) << 16 | twoBytes(page, at + 2);
}

std::optional<RawPages> RawPages::open(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0) return std::nullopt;
    RawPages pages(file);
    pages.readHeader();
    if (pages.m_count == 0) return std::nullopt;
    return pages;
}

RawPages::RawPages(RawPages&& other) noexcept
    : m_file(std::exchange(other.m_file, -1)),
      m_pageSize(other.m_pageSize),
      m_reserved(other.m_reserved),
      m_count(other.m_count) {}

RawPages::~RawPages() {
    if (m_file >= 0) ::close(m_file);
}

void RawPages::readHeader() {
    struct stat status {};
    if (::fstat(m_file, &status) != 0 || !S_ISREG(status.st_mode)) return;
    Page header(headerSize);
    if (::pread(m_file, header.data(), header.size(), 0) < static_cast<ssize_t>(header.size())) return;
    m_pageSize = twoBytes(header, pageSizeAt) == 1 ? 65536 : twoBytes(header, pageSizeAt);
    m_reserved = header[reservedAt];
    if (!isPageSize(m_pageSize))
        m_pageSize = engine::pageSize;  // the header is damaged; ours are of this size
    if (m_reserved > m_pageSize - 480) m_reserved = 0;
    m_count = static_cast<std::uint32_t>((status.st_size + m_pageSize - 1) / m_pageSize);
}

RawPages::Page RawPages::read(std::uint32_t number) const {
    if (number == 0 || number > m_count) return {};
    Page page(m_pageSize);
    const auto offset = static_cast<off_t>(number - 1) * m_pageSize;
    if (::pread(m_file, page.data(), page.size(), offset) <= 0) return {};
    return page;
}

std::set<std::uint32_t> RawPages::freePages() const {
    std::set<std::uint32_t> free;
    const Page first = read(1);
    if (first.empty()) return free;
    std::uint32_t trunk = fourBytes(first, freeListAt);
    while (trunk != 0 && free.insert(trunk).second) {
        const Page page = read(trunk);
        if (page.empty()) break;
        const std::uint32_t leaves = fourBytes(page, 4);
        if (leaves > usableSize() / 4 - 2) break;
        for (std::uint32_t i = 0; i < leaves; ++i) free.insert(fourBytes(page, 8 + 4 * i));
        trunk = fourBytes(page, 0);
    }
    return free;
}

}  // namespace engine
