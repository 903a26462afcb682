#pragma once

#include <QString>

namespace controls {

// Of a text that nobody would read to its end, the beginning and the ending, and what has more lines than a
// screen on one: names may come from anywhere.
[[nodiscard]] QString shortened(const QString& text);

// The same on one line, as a list or a tree shows a name: what would break the line, or turn the direction of
// what stands behind it, is shown as a sign.
[[nodiscard]] QString onOneLine(const QString& text);

}  // namespace controls
