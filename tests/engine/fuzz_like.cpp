#include <cstdio>

#include "engine/text/like_pattern.h"
#include "like_reference.h"
#include "support/fuzz_rounds.h"

// Patterns against a plain reading of their meaning; and any bytes at all, which must only end well.
int main(int argc, char** argv) {
    const auto textPieces = test::parts("a|B|b|c|1|.|-|]|!|*|jpg");
    const auto patternPieces = test::parts("a|b|C|*|*|?|#|[a-c]|[!b]|[a-]|[*]|[!]|[|]|[]|-|jpg|1");
    const auto bytes = test::parts("\xff|\xc3|\xb1|ñ|Ñ|ſ|K|a|*|[|😀|\xed\xa0\x80|?");
    std::mt19937 random(1);
    for (int i = rounds(argc, argv, 100'000); i > 0; --i) {
        const std::string text = randomText(random, textPieces, 9);
        const std::string pattern = randomText(random, patternPieces, 7);
        if (engine::LikePattern(pattern).matches(text) != likeReference(text, pattern)) {
            std::printf("'%s' like '%s' differs\n", text.c_str(), pattern.c_str());
            return 1;
        }
        (void)engine::LikePattern(randomText(random, bytes, 9)).matches(randomText(random, bytes, 9));
    }
}
