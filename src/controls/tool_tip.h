#pragma once

#include <QString>

namespace controls {

// A tool tip that shows these characters and no others, be they a tag: names come from anywhere. The toolkit
// guesses from a text whether it is marked up, so one that it would take for plain must not be escaped.
[[nodiscard]] inline QString toolTipOf(const QString& plain) {
    if (plain.isEmpty()) return plain;
    return QStringLiteral("<qt>%1</qt>").arg(plain.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

}  // namespace controls
