#include "lists/text_arena.h"

#include <algorithm>
#include <cstring>

namespace lists {
namespace {
constexpr std::size_t blockSize = 64 * 1024;
}

std::string_view TextArena::add(std::string_view text) {
    if (text.empty()) return {};
    if (text.size() > m_left) {
        const std::size_t size = std::max(blockSize, text.size());
        m_free = m_blocks.emplace_back(std::make_unique_for_overwrite<char[]>(size)).get();
        m_left = size;
        m_reserved += size;
    }
    std::memcpy(m_free, text.data(), text.size());
    const std::string_view kept(m_free, text.size());
    m_free += text.size();
    m_left -= text.size();
    return kept;
}

void TextArena::clear() {
    m_blocks.clear();
    m_free = nullptr;
    m_left = m_reserved = 0;
}

std::uint32_t TextPool::add(std::string_view text) {
    // A run of rows shares its unit and its path.
    if (m_texts.back() == text) return static_cast<std::uint32_t>(m_texts.size() - 1);
    if (const auto known = m_numbers.find(text); known != m_numbers.end()) return known->second;
    const auto number = static_cast<std::uint32_t>(m_texts.size());
    m_texts.push_back(m_arena.add(text));
    m_numbers.emplace(m_texts.back(), number);
    return number;
}

void TextPool::clear() {
    m_arena.clear();
    m_texts.assign(1, std::string_view());
    m_numbers.clear();
    m_numbers.emplace(std::string_view(), 0);
}

std::size_t TextPool::bytesUsed() const {
    // A node of the map holds a link, a hash, a view and a number.
    constexpr std::size_t node = 2 * sizeof(void*) + sizeof(std::pair<std::string_view, std::uint32_t>);
    return m_arena.bytesUsed() + m_texts.capacity() * sizeof(std::string_view) + m_numbers.size() * node +
           m_numbers.bucket_count() * sizeof(void*);
}

}  // namespace lists
