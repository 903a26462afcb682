#pragma once

#include <QString>
#include <optional>

class QPrinter;

namespace frame {

// The desktop's choosers behind one seam. Paths are native, as QString in the file system's encoding
// (QFile::encodeName gives the bytes). An empty answer is a cancel.
class Dialogs {
  public:
    virtual ~Dialogs() = default;
    [[nodiscard]] virtual QString openCatalogue(const QString& title, const QString& filter) = 0;
    [[nodiscard]] virtual QString saveCatalogue(const QString& title, const QString& filter) = 0;
    [[nodiscard]] virtual QString chooseFolder(const QString& title) = 0;
    // Shows the print dialog for `printer`; the number of copies, or nothing on cancel.
    [[nodiscard]] virtual std::optional<int> print(QPrinter& printer) = 0;
};

}  // namespace frame
