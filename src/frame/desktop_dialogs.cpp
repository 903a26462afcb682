#include "frame/desktop_dialogs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>

#include "controls/tool_tip.h"
#include "frame/dialog_owner.h"

namespace frame {

namespace {

// Of "Text (*.x)|*.x|" the toolkit wants "Text (*.x)".
QString toolkitFilter(const QString& filter) {
    return filter.section(u'|', 0, 0);
}

// In the toolkit's words, which it has in both languages.
bool mayReplace(const QString& file, const QString& title) {
    const QString question =
        QCoreApplication::translate("QFileDialog", "%1 already exists.\nDo you want to replace it?")
            .arg(QFileInfo(file).fileName());
    return QMessageBox::warning(dialogOwner(), title, controls::breakable(question),
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
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

// The dialog asks whether to overwrite the name that was typed. It is not told of the extension: a desktop's
// own dialog would add it after its question, and replace a file that it has never asked about.
QString DesktopDialogs::saveCatalogue(const QString& title, const QString& filter) {
    for (;;) {
        QFileDialog dialog(dialogOwner(), title, {}, toolkitFilter(filter));
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        const QString chosen = run(dialog, m_catalogueFolder);
        if (chosen.isEmpty() || QFileInfo(chosen).fileName().contains(u'.')) return chosen;
        const QString completed = chosen + QStringLiteral(".zrq");
        if (!QFileInfo::exists(completed) || mayReplace(completed, title)) return completed;
    }
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
