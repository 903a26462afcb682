#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lists {

// Texts end to end in large blocks: no allocation and no header a text, and they never move. Freed together.
class TextArena {
  public:
    std::string_view add(std::string_view text);
    void clear();
    [[nodiscard]] std::size_t bytesUsed() const { return m_reserved; }

  private:
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_free = nullptr;
    std::size_t m_left = 0;
    std::size_t m_reserved = 0;
};

// Texts that repeat from row to row (units, paths, types), each kept once and named by a number. 0 is "".
class TextPool {
  public:
    TextPool() { clear(); }
    std::uint32_t add(std::string_view text);
    [[nodiscard]] std::string_view text(std::uint32_t number) const { return m_texts[number]; }
    void clear();
    [[nodiscard]] std::size_t bytesUsed() const;

  private:
    TextArena m_arena;
    std::vector<std::string_view> m_texts;
    std::unordered_map<std::string_view, std::uint32_t> m_numbers;
};

}  // namespace lists
