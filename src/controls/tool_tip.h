#pragma once

#include <QString>

namespace controls {

// A tool tip that shows these characters and no others, be they a tag: names come from anywhere. The toolkit
// guesses from a text whether it is marked up, so one that it would take for plain must not be escaped.
[[nodiscard]] inline QString toolTipOf(const QString& plain) {
    return plain.isEmpty() ? plain : QStringLiteral("<qt>%1</qt>").arg(plain.toHtmlEscaped());
}

}  // namespace controls
