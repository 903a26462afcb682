#include "engine/rows/packed_rows.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace engine {

namespace {

// A field is its tag, then its bytes: a number's eight, or a text's. The tag of a text is its size +
// firstText.
using Tag = std::uint32_t;
constexpr Tag nullTag = 0;
constexpr Tag numberTag = 1;
constexpr Tag firstText = 2;

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

const char* PackedRows::add(const Prepared& row, const std::vector<Column>& fields) {
    struct Source {
        Tag tag = nullTag;
        const char* text = nullptr;
        double number = 0;
    };
    std::array<Source, columns.size()> sources;
    const std::size_t count = std::min(fields.size(), sources.size());
    std::size_t size = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const int column = static_cast<int>(i);
        size += sizeof(Tag);
        if (info(fields[i]).type == Type::Text) {
            const std::string_view text = row.text(column);
            if (!text.data()) continue;
            sources[i] = {static_cast<Tag>(text.size()) + firstText, text.data()};
            size += text.size();
        } else if (!row.isNull(column)) {
            sources[i] = {numberTag, nullptr, row.number(column)};
            size += sizeof(double);
        }
    }
    char* const packed = room(size);
    char* to = packed;
    for (std::size_t i = 0; i < count; ++i) {
        const auto& [tag, text, number] = sources[i];
        std::memcpy(to, &tag, sizeof tag);
        to += sizeof tag;
        if (tag == nullTag) continue;
        const std::size_t bytes = tag == numberTag ? sizeof number : tag - firstText;
        if (bytes > 0)
            std::memcpy(to, tag == numberTag ? reinterpret_cast<const char*>(&number) : text, bytes);
        to += bytes;
    }
    return packed;
}

std::size_t PackedRows::size(const char* row, std::size_t fields) {
    const char* at = row;
    for (; fields > 0; --fields) {
        Tag tag;
        std::memcpy(&tag, at, sizeof tag);
        at += sizeof tag + (tag >= firstText ? tag - firstText : tag == numberTag ? sizeof(double) : 0);
    }
    return static_cast<std::size_t>(at - row);
}

void PackedRows::unpack(const char* row, std::span<Value> values) {
    for (Value& value : values) {
        Tag tag;
        std::memcpy(&tag, row, sizeof tag);
        row += sizeof tag;
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
