#include "lists/text_arena.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace lists {
namespace {
constexpr std::size_t blockSize = 64 * 1024;
constexpr std::size_t fewestSlots = 64;
}  // namespace

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
    if (text.empty()) return 0;
    // A run of rows shares its unit and its path.
    if (m_texts.back() == text) return static_cast<std::uint32_t>(m_texts.size() - 1);
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
    std::size_t at = placeFor(hash);
    for (; m_slots[at].number != 0; at = next(at))
        if (m_slots[at].hash == hash && m_texts[m_slots[at].number] == text) return m_slots[at].number;
    const auto number = static_cast<std::uint32_t>(m_texts.size());
    m_texts.push_back(m_arena.add(text));
    m_slots[at] = {hash, number};
    if (m_texts.size() * 4 > m_slots.size() * 3) grow();
    return number;
}

void TextPool::grow() {
    std::vector<Slot> old(m_slots.size() * 2);
    old.swap(m_slots);
    for (const Slot& slot : old) {
        if (slot.number == 0) continue;
        std::size_t at = placeFor(slot.hash);
        while (m_slots[at].number != 0) at = next(at);
        m_slots[at] = slot;
    }
}

void TextPool::clear() {
    m_arena.clear();
    m_texts.assign(1, std::string_view());
    m_slots.assign(fewestSlots, {});
}

std::size_t TextPool::bytesUsed() const {
    return m_arena.bytesUsed() + m_texts.capacity() * sizeof(std::string_view) +
           m_slots.size() * sizeof(Slot);
}

}  // namespace lists
