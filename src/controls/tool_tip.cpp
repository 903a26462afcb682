#include "controls/tool_tip.h"

#include <QTextBoundaryFinder>

#include "controls/shown_text.h"

namespace controls {
namespace {

constexpr int longestRun = 40;
constexpr QChar zeroWidthSpace(0x200B);

}  // namespace

QString breakable(const QString& text) {
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    QString broken;
    int run = 0;
    for (qsizetype from = 0, to; (to = characters.toNextBoundary()) > 0; from = to) {
        run = text[from].isSpace() ? 0 : run + 1;
        if (run > longestRun) {
            broken += zeroWidthSpace;
            run = 1;
        }
        broken += QStringView(text).mid(from, to - from);
    }
    return broken;
}

QString toolTipOf(const QString& plain) {
    if (plain.isEmpty()) return plain;
    return QStringLiteral("<qt>%1</qt>")
        .arg(breakable(shortened(plain)).toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

}  // namespace controls
