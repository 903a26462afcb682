#pragma once

class QWidget;

namespace frame {

// The window over which a dialog comes up: the active one or, while none is or it has just been hidden, the
// main window. Nothing before there is one.
[[nodiscard]] QWidget* dialogOwner();

}  // namespace frame
