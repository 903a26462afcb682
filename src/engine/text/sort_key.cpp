#include "engine/text/sort_key.h"

#include <QChar>
#include <QList>
#include <QString>
#include <array>

#include "engine/text/folding.h"
#include "engine/text/utf8.h"

namespace engine {

namespace {

// Primary weights. 0 is kept for the border between the base letters and their accents.
constexpr unsigned char firstPunctuation = 1;
constexpr unsigned char otherPunctuation = 0x48;  // followed by three bytes of code point
constexpr unsigned char firstDigit = 0x50;
constexpr unsigned char firstLetter = 0x60;
constexpr unsigned char enie = firstLetter + ('n' - 'a') * 2 + 1;
constexpr unsigned char otherScript = 0xF0;  // followed by three bytes of code point
constexpr char32_t tilde = 0x303;
constexpr char32_t endOfLatin = 0x250;

constexpr unsigned char letterWeight(char lower) {
    return static_cast<unsigned char>(firstLetter + (lower - 'a') * 2);
}

constexpr std::array<unsigned char, 128> asciiWeights() {
    std::array<unsigned char, 128> weights{};
    unsigned char next = firstPunctuation;
    for (int c = 0; c < 128; ++c) {
        if (c >= '0' && c <= '9') {
            weights[c] = static_cast<unsigned char>(firstDigit + c - '0');
        } else if (c >= 'a' && c <= 'z') {
            weights[c] = letterWeight(static_cast<char>(c));
        } else if (c >= 'A' && c <= 'Z') {
            weights[c] = letterWeight(static_cast<char>(c - 'A' + 'a'));
        } else {
            weights[c] = next++;
        }
    }
    return weights;
}

constexpr std::array<unsigned char, 128> weightOfAscii = asciiWeights();

// Latin letters that Unicode does not take apart.
char baseOfUndivided(char32_t folded) {
    switch (folded) {
        case 0xE6:
            return 'a';  // æ
        case 0xF0:
        case 0x111:
            return 'd';  // ð đ
        case 0xF8:
        case 0x153:
            return 'o';  // ø œ
        case 0xDF:
            return 's';  // ß
        case 0xFE:
            return 't';  // þ
        case 0x131:
            return 'i';  // ı
        case 0x142:
            return 'l';  // ł
        default:
            return 0;
    }
}

// What Unicode takes a character apart into; empty when it does not.
std::u32string partsOf(char32_t character) {
    if (QChar::decompositionTag(character) != QChar::Canonical) return {};
    const QList<uint> parts = QChar::decomposition(character).toUcs4();
    return {parts.begin(), parts.end()};
}

// The same for the characters that nearly all texts are made of, asked once.
const std::u32string& partsOfLatin(char32_t character) {
    static const auto known = [] {
        std::array<std::u32string, endOfLatin> parts;
        for (char32_t c = 0; c < endOfLatin; ++c) parts[c] = partsOf(c);
        return parts;
    }();
    return known[character];
}

// Builds the two parts of one key: base weights, then one byte of accent for each base.
class KeyBuilder {
  public:
    explicit KeyBuilder(std::string& key) : m_key(key) {}

    void add(char32_t character) {
        if (character >= 0x80) character = folded(character);
        if (character < 0x80) return addBase(weightOfAscii[character]);
        if (character >= strayByteBase && character < strayByteBase + 0x100)
            return addWide(otherScript, character);
        const bool added =
            character < endOfLatin ? addAll(partsOfLatin(character)) : addAll(partsOf(character));
        if (!added) addWhole(character);
    }

    void finish() {
        if (m_accents.empty()) return;
        m_key += '\0';
        m_key += m_accents;
    }

  private:
    static constexpr char plain = 1;

    bool addAll(std::u32string_view parts) {
        for (const char32_t part : parts) add(part);
        return !parts.empty();
    }

    void addWhole(char32_t character) {
        if (QChar::isMark(character)) return addAccent(character);
        if (const char base = baseOfUndivided(character)) {
            addBase(letterWeight(base));
            return addAccent(character);
        }
        if (const int digit = QChar::digitValue(character); digit >= 0 && digit <= 9) {
            addBase(static_cast<unsigned char>(firstDigit + digit));
            return addAccent(character);
        }
        const bool letter =
            QChar::isLetterOrNumber(character) || QChar::category(character) == QChar::Other_PrivateUse;
        addWide(letter ? otherScript : otherPunctuation, character);
    }

    void addBase(unsigned char weight) {
        m_key += static_cast<char>(weight);
        ++m_bases;
        m_lastBase = weight;
    }

    void addWide(unsigned char lead, char32_t character) {
        m_key += static_cast<char>(lead);
        for (int shift = 14; shift >= 0; shift -= 7)
            m_key += static_cast<char>((character >> shift & 0x7F) + 1);
        ++m_bases;
        m_lastBase = 0;
    }

    void addAccent(char32_t mark) {
        if (m_bases == 0) return addWide(otherPunctuation, mark);
        if (mark == tilde && m_lastBase == letterWeight('n')) {
            m_key.back() = static_cast<char>(enie);
            return;
        }
        m_accents.resize(m_bases, plain);
        m_accents.back() = static_cast<char>(2 + (mark & 0x7F));
    }

    std::string& m_key;
    unsigned char m_lastBase = 0;
    std::size_t m_bases = 0;
    std::string m_accents;  // up to the last accent
};

}  // namespace

void appendSortKey(std::string& key, std::string_view text) {
    if (isAscii(text)) {
        const std::size_t begin = key.size();
        key.resize(begin + text.size());
        for (std::size_t i = 0; i < text.size(); ++i) {
            key[begin + i] = static_cast<char>(weightOfAscii[static_cast<unsigned char>(text[i])]);
        }
        return;
    }
    KeyBuilder builder(key);
    for (std::size_t i = 0; i < text.size();) builder.add(nextCharacter(text, i));
    builder.finish();
}

int compareSorted(std::string_view a, std::string_view b) {
    std::string x;
    std::string y;
    appendSortKey(x, a);
    appendSortKey(y, b);
    return x.compare(y);
}

}  // namespace engine
