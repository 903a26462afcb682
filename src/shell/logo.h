#pragma once

#include <QIcon>

namespace shell {

// The program's mark, a disc before an index card: drawn, so that it is sharp at any size and needs no image
// plugin.
[[nodiscard]] QIcon logo();

}  // namespace shell
