#include "engine/text/folding.h"

#include <QChar>
#include <array>

#include "engine/text/utf8.h"

namespace engine {

namespace {

constexpr char32_t tableSize = 0x800;  // all characters of one or two bytes

const std::array<char16_t, tableSize>& foldTable() {
    static const auto table = [] {
        std::array<char16_t, tableSize> filled{};
        for (char32_t c = 0; c < tableSize; ++c) filled[c] = static_cast<char16_t>(QChar::toCaseFolded(c));
        return filled;
    }();
    return table;
}

char foldedAscii(char byte) {
    const bool upper = static_cast<unsigned char>(byte - 'A') < 26;
    return static_cast<char>(byte | (upper ? 0x20 : 0));
}

}  // namespace

char32_t folded(char32_t character) {
    if (character < tableSize) return foldTable()[character];
    if (character >= strayByteBase && character < strayByteBase + 0x100) return character;
    return QChar::toCaseFolded(character);
}

void foldAscii(const char* text, std::size_t size, char* out) {
    for (std::size_t i = 0; i < size; ++i) out[i] = foldedAscii(text[i]);
}

void appendFolded(std::string& out, std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t begin = i;
        while (i < text.size() && isAscii(text[i])) ++i;
        const std::size_t end = out.size();
        out.append(text.data() + begin, i - begin);
        foldAscii(out.data() + end, i - begin, out.data() + end);
        while (i < text.size() && !isAscii(text[i])) appendCharacter(out, folded(nextCharacter(text, i)));
    }
}

std::string folded(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    appendFolded(result, text);
    return result;
}

int compareFolded(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i] == b[j] && isAscii(a[i])) {
            ++i;
            ++j;
            continue;
        }
        char32_t x;
        char32_t y;
        if (isAscii(a[i]) && isAscii(b[j])) {
            x = static_cast<unsigned char>(foldedAscii(a[i++]));
            y = static_cast<unsigned char>(foldedAscii(b[j++]));
        } else {
            x = folded(nextCharacter(a, i));
            y = folded(nextCharacter(b, j));
        }
        if (x != y) return x < y ? -1 : 1;
    }
    return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

bool equalFolded(std::string_view a, std::string_view b) {
    return a == b || compareFolded(a, b) == 0;
}

}  // namespace engine
