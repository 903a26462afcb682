#pragma once

class QWidget;

namespace controls {

// From now on the window comes up within the free area of its screen, never larger than it, and in its middle
// the first time. A window whose layout fixes its size is only moved. To be called once for a window.
void fitToScreen(QWidget& window);

}  // namespace controls
