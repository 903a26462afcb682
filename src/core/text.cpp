#include "core/text.h"

#include <QChar>
#include <QString>

#include "platform/qtext.h"
#include "platform/utf8.h"

namespace core {
namespace {

constexpr std::string_view apostrophe = "'";
constexpr std::string_view acuteAccent = "´";

}  // namespace

std::string replaceAll(std::string text, std::string_view what, std::string_view with) {
    if (what.empty()) return text;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

std::string withoutApostrophes(std::string_view diskText) {
    return replaceAll(std::string(diskText), apostrophe, acuteAccent);
}

std::string withApostrophes(std::string_view catalogueText) {
    return replaceAll(std::string(catalogueText), acuteAccent, apostrophe);
}

std::string_view lastComponent(std::string_view drivePath) {
    const std::size_t at = drivePath.rfind('\\');
    return at == std::string_view::npos ? drivePath : drivePath.substr(at + 1);
}

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path = folder;
    if (!path.ends_with('\\')) path += '\\';
    return path += name;
}

// Bytes may stand for characters here, since no pattern character splits a UTF-8 sequence. After a mismatch
// only the latest asterisk needs to take one byte more.
bool like(std::string_view text, std::string_view pattern) {
    std::size_t t = 0, p = 0, asterisk = std::string_view::npos, taken = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            asterisk = p++;
            taken = t;
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (asterisk != std::string_view::npos) {
            p = asterisk + 1;
            t = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

std::string lowerCase(std::string_view text) {
    if (!platform::isAscii(text)) return platform::qtext(text).toLower().toStdString();
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = char(c - 'A' + 'a');
    return lower;
}

std::string upperCase(std::string_view text) {
    return platform::qtext(text).toUpper().toStdString();
}

bool isAllowed(char32_t character, std::string_view allowed) {
    if (character > 0x10FFFF || QChar::isSurrogate(character)) return false;
    const char32_t lower = QChar::toLower(character);
    const std::string key = QString::fromUcs4(&lower, 1).toStdString();
    return allowed.find(key) != std::string_view::npos;
}

}  // namespace core
