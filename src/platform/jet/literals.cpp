#include "platform/jet/literals.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace jet {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isWordCharacter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_'; }

// Whatever else a statement may hold between its words and literals.
bool isPunctuation(char c) { return std::string_view(" \t\r\n()=<>,*;-").find(c) != std::string_view::npos; }

std::size_t endOfWord(std::string_view sql, std::size_t at) {
    while (at < sql.size() && isWordCharacter(sql[at])) ++at;
    return at;
}

std::size_t endOfNumber(std::string_view sql, std::size_t at) {
    const auto digits = [&] {
        while (at < sql.size() && isDigit(sql[at])) ++at;
    };
    digits();
    if (at < sql.size() && sql[at] == '.') {
        ++at;
        digits();
    }
    if (at < sql.size() && (sql[at] == 'e' || sql[at] == 'E')) {
        std::size_t exponent = at + 1;
        if (exponent < sql.size() && (sql[exponent] == '-' || sql[exponent] == '+')) ++exponent;
        if (exponent < sql.size() && isDigit(sql[exponent])) {
            at = exponent;
            digits();
        }
    }
    return at;
}

// Takes the quoted literal that opens at `at`, where a doubled quote stands for one. Gives the position behind it,
// npos when the quote is never closed.
std::size_t takeQuoted(std::string_view sql, std::size_t at, LiftedStatement& out) {
    const char quote = sql[at];
    const std::size_t begin = at + 1;
    std::size_t end = sql.find(quote, begin);
    if (end == sql.npos) return end;
    if (end + 1 == sql.size() || sql[end + 1] != quote) {
        out.literals.push_back({sql.substr(begin, end - begin), false});
        return end + 1;
    }
    std::string& text = out.unescaped.emplace_back();
    at = begin;
    while (end != sql.npos) {
        text += sql.substr(at, end - at);
        at = end + 1;
        if (at == sql.size() || sql[at] != quote) {
            out.literals.push_back({text, false});
            return at;
        }
        text += quote;
        end = sql.find(quote, ++at);
    }
    return end;
}

}  // namespace

Error syntaxError(std::string_view near) {
    constexpr std::size_t longest = 60;
    std::string text = "Syntax error in the statement";
    if (!near.empty()) text += " near: " + std::string(near.substr(0, longest));
    return {error::syntaxInExpression, text};
}

Result<> liftLiterals(std::string_view sql, LiftedStatement& out) {
    out.shape.clear();
    out.literals.clear();
    out.unescaped.clear();
    for (std::size_t at = 0; at < sql.size();) {
        const char c = sql[at];
        const std::size_t begin = at;
        if (c == '\'' || c == '"') {
            at = takeQuoted(sql, at, out);
            if (at == sql.npos) return std::unexpected(syntaxError(sql.substr(begin)));
            out.shape += LiftedStatement::textMark;
        } else if (isDigit(c) || (c == '.' && at + 1 < sql.size() && isDigit(sql[at + 1]))) {
            at = endOfNumber(sql, at);
            out.literals.push_back({sql.substr(begin, at - begin), true});
            out.shape += LiftedStatement::numberMark;
        } else if (isWordCharacter(c)) {
            at = endOfWord(sql, at);
            out.shape += sql.substr(begin, at - begin);
        } else if (isPunctuation(c)) {
            out.shape += c;
            ++at;
        } else {
            return std::unexpected(syntaxError(sql.substr(begin)));
        }
    }
    return {};
}

std::optional<double> numberOf(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    char buffer[64];
    if (text.empty() || text.size() > sizeof buffer) return std::nullopt;
    std::replace_copy(text.begin(), text.end(), buffer, ',', '.');
    const char* end = buffer + text.size();
    double number = 0;
    const auto [stopped, failure] = std::from_chars(buffer, end, number);
    if (failure != std::errc() || stopped != end || !std::isfinite(number)) return std::nullopt;
    return number;
}

}  // namespace jet
