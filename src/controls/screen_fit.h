#pragma once

class QScreen;
class QWidget;

namespace controls {

// Where somebody looks for a window that comes up: the screen of its owner, or else of the active window.
QScreen* screenFor(const QWidget& window);

// From now on the window comes up within the free area of its screen, never larger than it. The first time,
// and when its owner has gone to another screen, that is the middle of the owner's, otherwise where it was. A
// window whose layout fixes its size is only moved. To be called once for a window.
void fitToScreen(QWidget& window);

}  // namespace controls
