#pragma once

#include <QIcon>

namespace controls {

// The same icon, but lightened (or darkened) towards the colour of selected text while its row is selected:
// the toolkit tints it with the colour of the selection, in which thin lines vanish.
[[nodiscard]] QIcon selectableIcon(const QIcon& icon);

}  // namespace controls
