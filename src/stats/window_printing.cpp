#include "stats/window_printing.h"

#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QWidget>
#include <algorithm>

#include "frame/print_job.h"

namespace stats {
namespace {

constexpr double twipsPerPixel = 15;
constexpr int sharpness = 3;    // dots of the image to a pixel of the screen
constexpr double margin = 720;  // half an inch

QPixmap imageOf(QWidget& window) {
    QPixmap image(window.size() * sharpness);
    image.setDevicePixelRatio(sharpness);
    image.fill(window.palette().color(QPalette::Window));
    window.render(&image);
    return image;
}

}  // namespace

QRectF placeOnPaper(const QSizeF& window, const QSizeF& paper) {
    const QSizeF wanted = window * twipsPerPixel;
    const double fit = std::min({1.0, (paper.width() - 2 * margin) / wanted.width(),
                                 (paper.height() - 2 * margin) / wanted.height()});
    return {QPointF(margin, margin), wanted * fit};
}

bool printImage(QWidget& window, QPrinter& printer, int copies) {
    const QPixmap image = imageOf(window);
    return frame::printCopies(printer, copies, [&](QPainter& painter, QPrinter& target) {
        const QSizeF paper = target.pageLayout().fullRect(QPageLayout::Point).size() * 20;
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(placeOnPaper(window.size(), paper), image, image.rect());
        return true;
    });
}

}  // namespace stats
