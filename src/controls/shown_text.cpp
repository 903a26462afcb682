#include "controls/shown_text.h"

#include <utility>

namespace controls {
namespace {

constexpr qsizetype longest = 4096;  // more than a path to any file
constexpr qsizetype mostLines = 30;
constexpr QChar leftOut(0x2026), lineEnd(0x21B5);

bool breaksLine(QChar c) {
    const char16_t code = c.unicode();
    return (code >= u'\n' && code <= u'\r') || code == 0x85 || code == 0x2028 || code == 0x2029;
}

bool turnsDirection(QChar c) {
    const char16_t code = c.unicode();
    return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

QString cut(const QString& text) {
    if (text.size() <= longest) return text;
    return text.left(longest / 2) + leftOut + text.right(longest / 2);
}

}  // namespace

QString shortened(const QString& text) {
    const QString shown = cut(text);
    return shown.count(u'\n') < mostLines ? shown : onOneLine(shown);
}

QString onOneLine(const QString& text) {
    QString shown = cut(text);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const QChar c = std::as_const(shown)[i];
        if (breaksLine(c)) shown[i] = lineEnd;
        if (turnsDirection(c)) shown[i] = QChar::ReplacementCharacter;
    }
    return shown;
}

}  // namespace controls
