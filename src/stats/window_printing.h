#pragma once

#include <QRectF>

class QPrinter;
class QWidget;

namespace stats {

// Where the image of a window of so many pixels lies on such a paper: half an inch from its upper left
// corner, in its own size unless it would come nearer than that to the other edges. In twips.
[[nodiscard]] QRectF placeOnPaper(const QSizeF& window, const QSizeF& paper);

// Prints a window as it is on the screen, in its own size or as large as the paper allows, once per copy.
// False when the printer fails.
[[nodiscard]] bool printImage(QWidget& window, QPrinter& printer, int copies);

}  // namespace stats
