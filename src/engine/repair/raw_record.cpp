#include "engine/repair/raw_record.h"

#include <algorithm>
#include <bit>
#include <string_view>

namespace engine {

namespace {

// Reads numbers and bytes from a text without ever leaving it.
class Reader {
  public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool failed() const { return m_failed; }
    [[nodiscard]] std::size_t position() const { return m_at; }

    std::uint64_t varint() {
        std::uint64_t value = 0;
        for (int i = 0; i < 9; ++i) {
            const unsigned char byte = one();
            if (i == 8) return value << 8 | byte;
            value = value << 7 | (byte & 0x7F);
            if (byte < 0x80) return value;
        }
        return value;
    }

    std::int64_t integer(std::size_t size) {
        std::int64_t value = 0;
        for (std::size_t i = 0; i < size; ++i) {
            const unsigned char byte = one();
            value = i == 0 ? static_cast<signed char>(byte)
                           : static_cast<std::int64_t>(static_cast<std::uint64_t>(value) << 8 | byte);
        }
        return value;
    }

    std::string_view bytes(std::uint64_t size) {
        if (size > m_bytes.size() - m_at) {
            m_failed = true;
            return {};
        }
        m_at += size;
        return m_bytes.substr(m_at - size, size);
    }

  private:
    unsigned char one() {
        const std::string_view byte = bytes(1);
        return byte.empty() ? 0 : static_cast<unsigned char>(byte.front());
    }

    std::string_view m_bytes;
    std::size_t m_at = 0;
    bool m_failed = false;
};

std::string_view view(const RawPages::Page& page, std::size_t at) {
    return {reinterpret_cast<const char*>(page.data()) + at, page.size() - at};
}

// How much of a payload lies in the cell itself; the rest lies on overflow pages.
std::uint64_t localSize(std::uint64_t payload, std::uint64_t usable) {
    const std::uint64_t most = usable - 35;
    if (payload <= most) return payload;
    const std::uint64_t least = (usable - 12) * 32 / 255 - 23;
    const std::uint64_t fitting = least + (payload - least) % (usable - 4);
    return fitting <= most ? fitting : least;
}

std::optional<std::string> payloadOf(const RawPages& pages, const RawPages::Page& page, std::size_t at,
                                     std::uint64_t size, DecodingLimit& limit) {
    if (size > std::min(std::uint64_t{longestValue}, std::uint64_t{pages.count()} * pages.pageSize()))
        return std::nullopt;
    const std::uint64_t local = localSize(size, pages.usableSize());
    if (at + local + (local < size ? 4 : 0) > page.size() || !limit.allowsBytes(local)) return std::nullopt;
    std::string payload(view(page, at).substr(0, local));
    std::uint32_t next = local < size ? fourBytes(page, at + local) : 0;
    while (payload.size() < size) {
        if (!limit.allowsOverflowPage(next)) return std::nullopt;
        const RawPages::Page overflow = pages.read(next);
        if (overflow.empty()) return std::nullopt;
        payload += view(overflow, 4)
                       .substr(0, std::min<std::uint64_t>(size - payload.size(), pages.usableSize() - 4));
        next = fourBytes(overflow, 0);
    }
    return payload;
}

// A damaged type may be a wrong one and leave the rest of the row as it was; two types never stand for
// anything.
bool isType(std::uint64_t serialType) {
    return serialType != 10 && serialType != 11;
}

RawRow::Field fieldOf(std::uint64_t serialType, Reader& body) {
    static constexpr std::size_t integerSizes[] = {0, 1, 2, 3, 4, 6, 8};
    if (serialType == 0) return {};
    if (serialType <= 6) return body.integer(integerSizes[serialType]);
    if (serialType == 7) return std::bit_cast<double>(body.integer(8));
    if (serialType <= 9) return static_cast<std::int64_t>(serialType - 8);
    return std::string(body.bytes((serialType - 12) / 2));  // text or bytes
}

bool isLevel(const RawRow::Field& field) {
    const auto* text = std::get_if<std::string>(&field);
    return !text || text->size() <= 4;
}

// Every row of ours tells its unit and its kind.
bool isPlausible(const RawRow& row) {
    const auto has = [&](Column column) {
        return std::holds_alternative<std::string>(row.fields[static_cast<std::size_t>(column)]);
    };
    return row.rowid > 0 && (has(Column::disco) || has(Column::tipo)) &&
           isLevel(row.fields[static_cast<std::size_t>(Column::nivel)]);
}

}  // namespace

std::optional<RawRow> rowAt(const RawPages& pages, const RawPages::Page& page, std::size_t at,
                            DecodingLimit& limit) {
    if (at >= page.size()) return std::nullopt;
    Reader cell(view(page, at));
    const std::uint64_t size = cell.varint();
    RawRow row;
    row.rowid = static_cast<std::int64_t>(cell.varint());
    if (cell.failed()) return std::nullopt;
    const auto payload = payloadOf(pages, page, at + cell.position(), size, limit);
    if (!payload) return std::nullopt;

    Reader header(*payload);
    const std::uint64_t headerSize = header.varint();
    if (header.failed() || headerSize > payload->size()) return std::nullopt;
    Reader body(*payload);
    (void)body.bytes(headerSize);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::uint64_t serialType = header.varint();
        if (header.failed() || header.position() > headerSize || !isType(serialType)) {
            return std::nullopt;
        }
        row.fields[i] = fieldOf(serialType, body);
    }
    // A cell that promises more than its record needs has a damaged length before a whole row.
    const bool whole = header.position() == headerSize && !body.failed();
    if (!whole || !isPlausible(row)) return std::nullopt;
    return row;
}

}  // namespace engine
