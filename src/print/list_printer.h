#pragma once

#include "core/language.h"
#include "print/page_layout.h"

class QFont;
class QPainter;
class QPrinter;

namespace print {

// The report's font, "MS Sans Serif" 10 or the desktop's sans serif in its place, for a painter in twips.
[[nodiscard]] QFont reportFont();
[[nodiscard]] int reportLineHeight();  // twips

// Draws one page. A text wider than its room is drawn narrower, so that columns never run into each other.
void drawPage(QPainter& painter, const Page& page);

// Draws the whole report, page after page, on a painter in twips.
[[nodiscard]] bool printList(QPainter& painter, QPrinter& printer, const RowSource& rows,
                             core::Language idioma);

}  // namespace print
