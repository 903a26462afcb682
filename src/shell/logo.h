#pragma once

#include <QIcon>

class QPainter;

namespace shell {

// The program's mark, a disc before an index card: drawn, so that it is sharp at any size and needs no image
// plugin.
[[nodiscard]] QIcon logo();

// The same, drawn into a square.
void paintLogo(QPainter& painter, const QRect& square);

}  // namespace shell
