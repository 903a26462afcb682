#include "frame/desktop_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>

#include "frame/dialog_owner.h"

namespace frame {

namespace {

// Of "Text (*.x)|*.x|" the toolkit wants "Text (*.x)".
QString toolkitFilter(const QString& filter) {
    return filter.section(u'|', 0, 0);
}

}  // namespace

QString DesktopDialogs::run(QFileDialog& dialog, QString& folder) {
    if (!folder.isEmpty()) dialog.setDirectory(folder);
    if (dialog.exec() != QDialog::Accepted) return {};
    const QString chosen = dialog.selectedFiles().value(0);
    folder = dialog.directory().absolutePath();
    return chosen;
}

QString DesktopDialogs::openCatalogue(const QString& title, const QString& filter) {
    QFileDialog dialog(dialogOwner(), title, {}, toolkitFilter(filter));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog, m_catalogueFolder);
}

// The dialog adds the extension that was not typed before it asks whether to overwrite, so the question is
// always about the file that will be written.
QString DesktopDialogs::saveCatalogue(const QString& title, const QString& filter) {
    QFileDialog dialog(dialogOwner(), title, {}, toolkitFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QStringLiteral("zrq"));
    return run(dialog, m_catalogueFolder);
}

QString DesktopDialogs::chooseFolder(const QString& title) {
    QFileDialog dialog(dialogOwner(), title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return run(dialog, m_chosenFolder);
}

std::optional<int> DesktopDialogs::print(QPrinter& printer) {
    // On a machine without printers the dialog has only its file printer, which refuses to start without a
    // name.
    if (printer.outputFileName().isEmpty() && printer.printerName().isEmpty()) {
        QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        if (!QFileInfo(folder).isDir()) folder = QDir::homePath();
        printer.setOutputFileName(QDir(folder).filePath(QStringLiteral("zarquelin.pdf")));
    }
    QPrintDialog dialog(&printer, dialogOwner());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);  // it is always the whole document
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return printer.copyCount();
}

}  // namespace frame
