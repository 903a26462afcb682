#pragma once

#include "frame/dialogs.h"

class QFileDialog;

namespace frame {

// The desktop's own choosers, over whichever window is active. They start in the folder of the last answer.
class DesktopDialogs : public Dialogs {
  public:
    [[nodiscard]] QString openCatalogue(const QString& title, const QString& filter) override;
    [[nodiscard]] QString saveCatalogue(const QString& title, const QString& filter) override;
    [[nodiscard]] QString chooseFolder(const QString& title) override;
    [[nodiscard]] std::optional<int> print(QPrinter& printer) override;

  private:
    QString run(QFileDialog& dialog, QString& folder);

    QString m_catalogueFolder;
    QString m_chosenFolder;
};

}  // namespace frame
