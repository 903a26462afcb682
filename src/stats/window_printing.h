#pragma once

class QPrinter;
class QWidget;

namespace stats {

// Prints a window as it is on the screen, in its own size or as large as the paper allows, once per copy.
// False when the printer fails.
[[nodiscard]] bool printImage(QWidget& window, QPrinter& printer, int copies);

}  // namespace stats
