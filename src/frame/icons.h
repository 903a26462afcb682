#pragma once

#include <QIcon>
#include <QStringView>

namespace frame {

// The icon of a menu entry or a toolbar button by its name; null for one that has none.
[[nodiscard]] QIcon iconOf(QStringView control);

}  // namespace frame
