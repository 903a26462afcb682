#include "engine/dialect/literals.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace engine {

namespace {

// What a character is outside quotes.
enum class Kind : unsigned char { Foreign, Word, Digit, Point, Punctuation, Quote };

constexpr std::array<Kind, 256> kinds = [] {
    std::array<Kind, 256> table{};
    const auto set = [&table](std::string_view characters, Kind kind) {
        for (const char c : characters) table[static_cast<unsigned char>(c)] = kind;
    };
    set("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_", Kind::Word);
    set("0123456789", Kind::Digit);
    set(" \t\r\n()=<>,*;-", Kind::Punctuation);
    set(".", Kind::Point);
    set("'\"", Kind::Quote);
    return table;
}();

Kind kindOf(char c) {
    return kinds[static_cast<unsigned char>(c)];
}
bool isDigit(char c) {
    return kindOf(c) == Kind::Digit;
}
bool isWordCharacter(char c) {
    return kindOf(c) == Kind::Word || isDigit(c);
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

// Takes the quoted literal that opens at `at`, where a doubled quote stands for one. Gives the position
// behind it, npos when the quote is never closed.
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

bool beginsNumber(std::string_view sql, std::size_t at) {
    return isDigit(sql[at]) || (sql[at] == '.' && at + 1 < sql.size() && isDigit(sql[at + 1]));
}

// Takes the literal that begins at `at`, and gives the position behind it. Gives npos where none begins or a
// quote is never closed.
std::size_t takeLiteral(std::string_view sql, std::size_t at, LiftedStatement& out) {
    if (kindOf(sql[at]) == Kind::Quote) return takeQuoted(sql, at, out);
    if (!beginsNumber(sql, at)) return sql.npos;
    const std::size_t end = endOfNumber(sql, at);
    out.literals.push_back({sql.substr(at, end - at), true});
    return end;
}

}  // namespace

Error syntaxError(std::string_view near) {
    constexpr std::size_t longest = 60;
    std::string text = "Syntax error in the statement";
    if (!near.empty()) text += " near: " + std::string(near.substr(0, longest));
    return {error::syntaxInExpression, text};
}

std::size_t endOfWord(std::string_view sql, std::size_t at) {
    while (at < sql.size() && isWordCharacter(sql[at])) ++at;
    return at;
}

Result<> liftLiterals(std::string_view sql, LiftedStatement& out) {
    out.shape.clear();
    out.literals.clear();
    out.unescaped.clear();
    std::size_t at = 0;
    std::size_t kept = 0;  // up to here the statement is in the shape
    while (at < sql.size()) {
        const std::size_t begin = at;
        const Kind kind = kindOf(sql[at]);
        if (kind == Kind::Word) {
            at = endOfWord(sql, at);
            continue;
        }
        if (kind == Kind::Punctuation) {
            ++at;
            continue;
        }
        at = takeLiteral(sql, begin, out);
        if (at == sql.npos) return std::unexpected(syntaxError(sql.substr(begin)));
        out.shape += sql.substr(kept, begin - kept);
        out.shape += out.literals.back().isNumber ? LiftedStatement::numberMark : LiftedStatement::textMark;
        kept = at;
    }
    out.shape += sql.substr(kept);
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

}  // namespace engine
