#pragma once

#include <QString>

namespace controls {

// A text whose lines can be broken within names and paths that have no blank for long. What is added is not
// to be seen; only to be shown, not to be stored or compared.
[[nodiscard]] QString breakable(const QString& text);

// A tool tip that shows these characters and no others, be they a tag: names come from anywhere. The toolkit
// guesses from a text whether it is marked up, so one that it would take for plain must not be escaped.
[[nodiscard]] QString toolTipOf(const QString& plain);

}  // namespace controls
