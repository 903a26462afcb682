#include "engine/text/utf8.h"

#include <cstdint>
#include <cstring>

namespace engine {

namespace {

// Bytes that a sequence of this lead byte has after it; -1 for a byte that leads none.
int followers(unsigned char lead) {
    if (lead < 0x80) return 0;
    if (lead >= 0xC2 && lead < 0xE0) return 1;
    if (lead >= 0xE0 && lead < 0xF0) return 2;
    if (lead >= 0xF0 && lead < 0xF5) return 3;
    return -1;
}

bool isEncodable(char32_t character, int followers) {
    static constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    return character >= smallest[followers] && character <= 0x10FFFF && !surrogate;
}

}  // namespace

bool isAscii(std::string_view text) {
    const char* bytes = text.data();
    std::size_t left = text.size();
    std::uint64_t seen = 0;
    for (; left >= 8; left -= 8, bytes += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes, 8);
        seen |= word;
    }
    for (; left > 0; --left, ++bytes) seen |= static_cast<unsigned char>(*bytes) & 0x80U;
    return (seen & 0x8080808080808080U) == 0;
}

char32_t nextCharacter(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80) return lead;
    const int count = followers(lead);
    if (count < 0 || text.size() - position < static_cast<std::size_t>(count)) return strayByteBase + lead;
    char32_t character = lead & (0x3FU >> count);
    for (int i = 0; i < count; ++i) {
        const auto byte = static_cast<unsigned char>(text[position + i]);
        if ((byte & 0xC0) != 0x80) return strayByteBase + lead;
        character = character << 6 | (byte & 0x3FU);
    }
    if (!isEncodable(character, count)) return strayByteBase + lead;
    position += count;
    return character;
}

void appendCharacter(std::string& text, char32_t character) {
    const auto tail = [&](int shift) { text += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        tail(0);
    } else if (character >= strayByteBase && character < strayByteBase + 0x100) {
        text += static_cast<char>(character - strayByteBase);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | character >> 12);
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | character >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace engine
