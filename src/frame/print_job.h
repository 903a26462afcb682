#pragma once

#include <QString>
#include <functional>

class QPainter;
class QPrinter;

namespace frame {

inline constexpr int twipsPerInch = 1440;

// Draws one whole document; `newPage` on the printer starts its further pages. False gives the job up.
using Document = std::function<bool(QPainter& painter, QPrinter& printer)>;

// Prints a document once per copy, each copy a job of its own that draws it from its first page. The painter
// counts in twips from the corner of what the printer can reach (of the paper, for a PDF). Copies to a file
// become files of their own: "list.pdf", "list (2).pdf"..., names that are taken left out. False as soon as
// the printer fails; what was sent stays sent.
[[nodiscard]] bool printCopies(QPrinter& printer, int copies, const Document& document);

// Where a copy to a file goes: the first one to the chosen name.
[[nodiscard]] QString copyFileName(const QString& chosen, int copy);

}  // namespace frame
