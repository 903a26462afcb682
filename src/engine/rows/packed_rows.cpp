#include "engine/rows/packed_rows.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace engine {

namespace {

// A field is its tag, then its bytes: a number's eight, or a text's. The tag of a text is its size +
// firstText. Seven bits of a tag stand in a byte, the lowest first; the eighth tells that more follow.
using Tag = std::uint32_t;
constexpr Tag nullTag = 0;
constexpr Tag numberTag = 1;
constexpr Tag firstText = 2;
constexpr int tagBits = 7;
constexpr Tag moreBits = 1U << tagBits;

std::size_t sizeOfTag(Tag tag) {
    std::size_t size = 1;
    for (; tag >= moreBits; tag >>= tagBits) ++size;
    return size;
}

char* putTag(char* to, Tag tag) {
    for (; tag >= moreBits; tag >>= tagBits) *to++ = static_cast<char>(tag | moreBits);
    *to++ = static_cast<char>(tag);
    return to;
}

Tag takeTag(const char*& at) {
    Tag tag = 0;
    for (int bits = 0;; bits += tagBits) {
        const auto byte = static_cast<unsigned char>(*at++);
        tag |= (byte & (moreBits - 1)) << bits;
        if (byte < moreBits) return tag;
    }
}

}  // namespace

char* PackedRows::room(std::size_t size) {
    if (size > m_left) {
        m_left = std::max(size, blockSize);
        m_free = m_blocks.emplace_back(new char[m_left]).get();
    }
    m_left -= size;
    m_bytes += size;
    return std::exchange(m_free, m_free + size);
}

const char* PackedRows::addBytes(std::string_view bytes) {
    char* to = room(bytes.size());
    if (!bytes.empty()) std::memcpy(to, bytes.data(), bytes.size());
    return to;
}

void PackedRows::take(PackedRows&& other) {
    std::ranges::move(other.m_blocks, std::back_inserter(m_blocks));
    m_bytes += other.m_bytes;
    other = {};
}

std::string_view PackedRows::add(const Prepared& row, const std::vector<Column>& fields) {
    struct Source {
        Tag tag = nullTag;
        const char* bytes = nullptr;
        std::size_t size = 0;
    };
    std::array<Source, columns.size()> sources;
    std::array<double, columns.size()> numbers;
    const std::size_t count = std::min(fields.size(), sources.size());
    std::size_t size = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const int column = static_cast<int>(i);
        if (info(fields[i]).type == Type::Text) {
            const std::string_view text = row.text(column);
            if (text.data())
                sources[i] = {static_cast<Tag>(text.size()) + firstText, text.data(), text.size()};
        } else if (!row.isNull(column)) {
            numbers[i] = row.number(column);
            sources[i] = {numberTag, reinterpret_cast<const char*>(&numbers[i]), sizeof(double)};
        }
        size += sizeOfTag(sources[i].tag) + sources[i].size;
    }
    char* const packed = room(size);
    char* to = packed;
    for (const Source& source : std::span(sources).first(count)) {
        to = putTag(to, source.tag);
        if (source.size > 0) std::memcpy(to, source.bytes, source.size);
        to += source.size;
    }
    return {packed, size};
}

void PackedRows::unpack(const char* row, std::span<Value> values) {
    for (Value& value : values) {
        const Tag tag = takeTag(row);
        if (tag == nullTag) {
            value = Value();
        } else if (tag == numberTag) {
            double number;
            std::memcpy(&number, row, sizeof number);
            value = Value({}, number);
            row += sizeof number;
        } else {
            value = Value(std::string_view(row, tag - firstText));
            row += tag - firstText;
        }
    }
}

}  // namespace engine
