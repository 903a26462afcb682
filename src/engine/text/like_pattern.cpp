#include "engine/text/like_pattern.h"

#include <algorithm>
#include <span>

#include "engine/text/folding.h"
#include "platform/utf8.h"

namespace engine {

using platform::appendCharacter;
using platform::isAscii;
using platform::nextCharacter;

namespace {

std::u32string foldedCharacters(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) characters += folded(nextCharacter(text, i));
    return characters;
}

// The two characters beyond ASCII that fold to letters of it, the Kelvin sign and the long s. Without them, a
// pattern of ASCII meets a text's other characters in its stars alone, where they need no folding.
bool hasTwinOfAscii(std::string_view text) {
    return text.find("\u212A") != text.npos || text.find("\u017F") != text.npos;
}

}  // namespace

bool LikePattern::Set::contains(char32_t character) const {
    const auto holds = [character](Range range) {
        return character >= range.first && character <= range.last;
    };
    return std::any_of(ranges.begin(), ranges.end(), holds) != negated;
}

bool LikePattern::Step::accepts(char32_t candidate) const {
    switch (kind) {
        case Character:
            return candidate == character;
        case Digit:
            return candidate >= U'0' && candidate <= U'9';
        case OneOf:
            return set.contains(candidate);
        case AnyOne:
            return true;
        case AnyRun:
            break;
    }
    return false;
}

LikePattern::LikePattern(std::string_view pattern, Signs signs) : LikePattern(pattern, Read::AllWildcards) {
    if (signs == Signs::WildcardsOrThemselves && holdsSigns(pattern))
        m_asName.reset(new LikePattern(pattern, Read::StarsOnly));
}

LikePattern::LikePattern(std::string_view pattern, Read read) {
    compile(pattern, read);
    const auto isCharacterOrStar = [](const Step& step) {
        return step.kind == Step::Character || step.kind == Step::AnyRun;
    };
    if (!std::ranges::all_of(m_steps, isCharacterOrStar)) return;
    m_pieces = textsBetweenWildcards();
    m_asciiPieces = std::ranges::all_of(m_pieces, [](const std::string& piece) { return isAscii(piece); });
}

void LikePattern::compile(std::string_view pattern, Read read) {
    const bool allWildcards = read == Read::AllWildcards;
    for (std::size_t i = 0; i < pattern.size();) {
        const char sign = pattern[i];
        const std::size_t end = allWildcards && sign == '[' ? pattern.find(']', i) : pattern.npos;
        if (sign == '*') {
            if (m_steps.empty() || m_steps.back().kind != Step::AnyRun)
                m_steps.push_back({.kind = Step::AnyRun});
            ++i;
        } else if (allWildcards && (sign == '?' || sign == '#')) {
            m_steps.push_back({.kind = sign == '?' ? Step::AnyOne : Step::Digit});
            ++i;
        } else if (end != pattern.npos) {
            const auto inside = pattern.substr(i + 1, end - i - 1);
            if (!inside.empty()) m_steps.push_back({.kind = Step::OneOf, .set = parseSet(inside)});
            i = end + 1;
        } else {
            m_steps.push_back({.kind = Step::Character, .character = folded(nextCharacter(pattern, i))});
        }
    }
}

bool LikePattern::hasWildcardFor(char32_t character) const {
    return std::ranges::any_of(m_steps, [character](const Step& step) {
        return step.kind != Step::Character && step.kind != Step::AnyRun && step.accepts(character);
    });
}

std::vector<std::string> LikePattern::textsBetweenWildcards() const {
    std::vector<std::string> texts(1);
    for (const Step& step : m_steps) {
        if (step.kind == Step::Character)
            appendCharacter(texts.back(), step.character);
        else
            texts.emplace_back();
    }
    return texts;
}

std::vector<std::string> LikePattern::heldTexts() const {
    if (m_asName) return {};
    std::vector<std::string> texts = textsBetweenWildcards();
    std::erase(texts, std::string());
    std::ranges::stable_sort(texts, std::ranges::greater(), &std::string::size);
    return texts;
}

LikePattern::Set LikePattern::parseSet(std::string_view inside) {
    Set set;
    if (inside.size() > 1 && inside.front() == '!') {
        set.negated = true;
        inside.remove_prefix(1);
    }
    const std::u32string members = foldedCharacters(inside);
    for (std::size_t i = 0; i < members.size();) {
        const bool range = i + 2 < members.size() && members[i + 1] == U'-';
        set.ranges.push_back({members[i], members[range ? i + 2 : i]});
        i += range ? 3 : 1;
    }
    return set;
}

bool LikePattern::matches(std::string_view text) const {
    return matchesAsRead(text) || (m_asName && m_asName->matchesAsRead(text));
}

bool LikePattern::matchesAsRead(std::string_view text) const {
    if (m_pieces.empty()) return stepsMatch(foldedCharacters(text));
    char buffer[512];
    if (text.size() <= sizeof buffer && (isAscii(text) || (m_asciiPieces && !hasTwinOfAscii(text)))) {
        foldAscii(text.data(), text.size(), buffer);
        return piecesMatch({buffer, text.size()});
    }
    m_folded.clear();
    appendFolded(m_folded, text);
    return piecesMatch(m_folded);
}

bool LikePattern::piecesMatch(std::string_view text) const {
    const std::string& start = m_pieces.front();
    const std::string& end = m_pieces.back();
    if (m_pieces.size() == 1) return text == start;
    if (text.size() < start.size() + end.size() || !text.starts_with(start) || !text.ends_with(end))
        return false;
    text.remove_prefix(start.size());
    text.remove_suffix(end.size());
    for (const std::string& piece : std::span(m_pieces).subspan(1, m_pieces.size() - 2)) {
        const std::size_t found = text.find(piece);
        if (found == text.npos) return false;
        text.remove_prefix(found + piece.size());
    }
    return true;
}

// After a mismatch only the last star can take one character more, so the cost is bounded by text times
// pattern.
bool LikePattern::stepsMatch(std::u32string_view text) const {
    std::size_t at = 0;
    std::size_t step = 0;
    std::size_t retryStep = m_steps.size();
    std::size_t retryAt = 0;
    bool starSeen = false;
    while (at < text.size()) {
        if (step < m_steps.size() && m_steps[step].kind == Step::AnyRun) {
            starSeen = true;
            retryStep = ++step;
            retryAt = at;
        } else if (step < m_steps.size() && m_steps[step].accepts(text[at])) {
            ++step;
            ++at;
        } else if (starSeen) {
            step = retryStep;
            at = ++retryAt;
        } else {
            return false;
        }
    }
    while (step < m_steps.size() && m_steps[step].kind == Step::AnyRun) ++step;
    return step == m_steps.size();
}

}  // namespace engine
