#include "core/literals.h"

#include "core/text.h"

namespace core {

std::string literal(std::string_view text) {
    return "'" + replaceAll(std::string(text), "'", "''") + "'";
}

std::string asPattern(std::string_view name) {
    std::string pattern;
    for (const char c : name) {
        const bool isWildcard = c == '*' || c == '?' || c == '#' || c == '[';
        pattern.append(isWildcard ? "[" : "").append(1, c).append(isWildcard ? "]" : "");
    }
    return pattern;
}

engine::Result<> refuseApostrophe(std::string_view text) {
    if (text.find('\'') == std::string_view::npos) return {};
    return std::unexpected(
        engine::Error{engine::error::syntaxInExpression, "an apostrophe in " + std::string(text)});
}

}  // namespace core
