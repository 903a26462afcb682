#include "frame/print_job.h"

#include <QFileInfo>
#include <QPainter>
#include <QPrinter>

namespace frame {
namespace {

bool printOnce(QPrinter& printer, const Document& document) {
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    const QMarginsF unreachable = printer.pageLayout().minimumMargins();
    const double toTwips = printer.pageLayout().units() == QPageLayout::Millimeter ? twipsPerInch / 25.4 : 20;
    const double scale = static_cast<double>(printer.resolution()) / twipsPerInch;
    painter.scale(scale, scale);
    painter.translate(unreachable.left() * toTwips, unreachable.top() * toTwips);
    if (!document(painter, printer)) {
        printer.abort();
        return false;
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

// Only of the chosen file was the user asked whether it may be replaced.
QString nextCopyName(const QString& chosen, int& number) {
    QString name;
    do name = copyFileName(chosen, ++number);
    while (number > 1 && QFileInfo::exists(name));
    return name;
}

}  // namespace

QString copyFileName(const QString& chosen, int copy) {
    if (copy == 1) return chosen;
    const QString suffix = QFileInfo(chosen).suffix();
    const QString end = suffix.isEmpty() ? QString() : u'.' + suffix;
    return chosen.chopped(end.size()) + QStringLiteral(" (%1)").arg(copy) + end;
}

bool printCopies(QPrinter& printer, int copies, const Document& document) {
    printer.setCopyCount(1);  // the copies are made here
    printer.setResolution(twipsPerInch);
    printer.setFullPage(true);
    const QString chosen = printer.outputFileName();
    int number = 0;
    for (int copy = 1; copy <= copies; ++copy) {
        if (!chosen.isEmpty()) printer.setOutputFileName(nextCopyName(chosen, number));
        if (!printOnce(printer, document)) return false;
    }
    return true;
}

}  // namespace frame
