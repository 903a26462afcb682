#include "engine/repair/raw_pages.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <limits>

#include "engine/file/sqlite_error.h"
#include "engine/format.h"
#include "platform/held_files.h"

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

RawPages::RawPages(sqlite3* database) {
    sqlite3_int64 size = 0;
    if (sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &m_file) != SQLITE_OK ||
        !m_file->pMethods || m_file->pMethods->xFileSize(m_file, &size) != SQLITE_OK) {
        m_failure = lastError(database);
        return;
    }
    Page header(headerSize);
    if (size < static_cast<sqlite3_int64>(headerSize) || !readAt(0, header)) return;
    m_pageSize = twoBytes(header, pageSizeAt) == 1 ? 65536 : twoBytes(header, pageSizeAt);
    m_reserved = header[reservedAt];
    if (!isPageSize(m_pageSize))
        m_pageSize = engine::pageSize;  // the header is damaged; ours are of this size
    if (m_reserved > m_pageSize - 480) m_reserved = 0;
    constexpr sqlite3_int64 mostPages = std::numeric_limits<std::uint32_t>::max() - 1;
    m_count = static_cast<std::uint32_t>(std::min((size + m_pageSize - 1) / m_pageSize, mostPages));
    m_descriptor = ::open(sqlite3_db_filename(database, "main"), O_RDONLY | O_CLOEXEC);
}

RawPages::~RawPages() {
    if (m_descriptor >= 0) platform::closeKeepingLocks(m_descriptor);
}

bool RawPages::readAt(std::int64_t offset, Page& bytes) const {
    const int code = m_file->pMethods->xRead(m_file, bytes.data(), static_cast<int>(bytes.size()), offset);
    if (code == SQLITE_OK || code == SQLITE_IOERR_SHORT_READ) return true;
    m_failure = errorOfCode(code);
    return false;
}

RawPages::Page RawPages::read(std::uint32_t number) const {
    if (number == 0 || number > m_count) return {};
    Page page(m_pageSize);
    if (!readAt(static_cast<std::int64_t>(number - 1) * m_pageSize, page)) return {};
    return page;
}

std::uint32_t RawPages::nextWritten(std::uint32_t number) const {
    if (number > m_count) return 0;
    const off_t at = ::lseek(m_descriptor, static_cast<off_t>(number - 1) * m_pageSize, SEEK_DATA);
    if (at < 0) return errno == ENXIO ? 0 : number;  // not every file system knows its holes
    return static_cast<std::uint32_t>(at / m_pageSize) + 1;
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
