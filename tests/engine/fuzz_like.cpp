#include "engine/text/like_pattern.h"
#include "support/fuzz.h"

namespace {

// The meaning of a pattern, written out plainly for ASCII: slow, and obviously right.
bool likeReference(std::string_view text, std::string_view pattern) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    if (pattern.empty()) return text.empty();
    const char wanted = pattern.front();
    const std::string_view rest = pattern.substr(1);
    if (wanted == '*') {
        for (std::size_t i = 0; i <= text.size(); ++i) {
            if (likeReference(text.substr(i), rest)) return true;
        }
        return false;
    }
    if (wanted == '[' && rest.find(']') != rest.npos) {
        const std::size_t end = rest.find(']');
        std::string_view set = rest.substr(0, end);
        const std::string_view behind = rest.substr(end + 1);
        if (set.empty()) return likeReference(text, behind);
        const bool negated = set.size() > 1 && set.front() == '!';
        if (negated) set.remove_prefix(1);
        if (text.empty()) return false;
        bool inside = false;
        for (std::size_t i = 0; i < set.size();) {
            const bool range = i + 2 < set.size() && set[i + 1] == '-';
            inside |= lower(text[0]) >= lower(set[i]) && lower(text[0]) <= lower(set[range ? i + 2 : i]);
            i += range ? 3 : 1;
        }
        return inside != negated && likeReference(text.substr(1), behind);
    }
    if (text.empty()) return false;
    const bool one =
        wanted == '?' || (wanted == '#' ? text[0] >= '0' && text[0] <= '9' : lower(wanted) == lower(text[0]));
    return one && likeReference(text.substr(1), rest);
}

const auto textPieces = test::parts("a|B|b|c|1|.|-|]|!|*|jpg");
const auto patternPieces = test::parts("a|b|C|*|*|?|#|[a-c]|[!b]|[a-]|[*]|[!]|[|]|[]|-|jpg|1");
const auto bytes = test::parts("\xff|\xc3|\xb1|ñ|Ñ|ſ|K|a|*|[|😀|\xed\xa0\x80|?");

// Patterns against a plain reading of their meaning; and any bytes at all, which must only end well.
struct PatternsMatchAsTheyRead : test::Fuzz {
    void round(test::Random& random) {
        const std::string text = test::randomText(random, textPieces, 9);
        const std::string pattern = test::randomText(random, patternPieces, 7);
        const bool matches = engine::LikePattern(pattern).matches(text);
        ASSERT_EQ(matches, likeReference(text, pattern)) << text << ' ' << pattern;
        if (matches) ++useful;
        std::string odd = test::randomText(random, bytes, 9);
        test::spoil(odd, random);
        (void)engine::LikePattern(test::randomText(random, bytes, 9)).matches(odd);
        (void)engine::LikePattern(odd).matches(text);
    }
};
FUZZED(PatternsMatchAsTheyRead, 100'000)

}  // namespace
