#include "platform/jet/sort_key.h"

#include <QChar>
#include <QList>
#include <QString>
#include <array>

#include "platform/jet/folding.h"
#include "platform/jet/utf8.h"

namespace jet {

namespace {

// Primary weights. 0 is kept for the border between the base letters and their accents.
constexpr unsigned char firstPunctuation = 1;
constexpr unsigned char otherPunctuation = 0x48;  // followed by three bytes of code point
constexpr unsigned char firstDigit = 0x50;
constexpr unsigned char firstLetter = 0x60;
constexpr unsigned char enie = firstLetter + ('n' - 'a') * 2 + 1;
constexpr unsigned char otherScript = 0xF0;  // followed by three bytes of code point
constexpr char32_t tilde = 0x303;

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

// Builds the two parts of one key: base weights, then one byte of accent for each base.
class KeyBuilder {
  public:
    explicit KeyBuilder(std::string& key) : m_key(key) {}

    void add(char32_t character) {
        character = folded(character);
        if (character < 0x80) return addBase(weightOfAscii[character]);
        if (character >= strayByteBase && character < strayByteBase + 0x100)
            return addWide(otherScript, character);
        if (QChar::decompositionTag(character) == QChar::Canonical) {
            for (const char32_t part : QChar::decomposition(character).toUcs4()) add(part);
            return;
        }
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

    void finish() {
        if (!m_accented) return;
        m_key += '\0';
        while (!m_accents.empty() && m_accents.back() == plain) m_accents.pop_back();
        m_key += m_accents;
    }

  private:
    static constexpr char plain = 1;

    void addBase(unsigned char weight) {
        m_key += static_cast<char>(weight);
        m_accents += plain;
        m_lastBase = weight;
    }

    void addWide(unsigned char lead, char32_t character) {
        m_key += static_cast<char>(lead);
        for (int shift = 14; shift >= 0; shift -= 7)
            m_key += static_cast<char>((character >> shift & 0x7F) + 1);
        m_accents += plain;
        m_lastBase = 0;
    }

    void addAccent(char32_t mark) {
        if (m_accents.empty()) return addWide(otherPunctuation, mark);
        if (mark == tilde && m_lastBase == letterWeight('n')) {
            m_key.back() = static_cast<char>(enie);
            return;
        }
        m_accented = true;
        m_accents.back() = static_cast<char>(2 + (mark & 0x7F));
    }

    std::string& m_key;
    unsigned char m_lastBase = 0;
    std::string m_accents;
    bool m_accented = false;
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

}  // namespace jet
