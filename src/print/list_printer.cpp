#include "print/list_printer.h"

#include <QFont>
#include <QFontMetricsF>
#include <QIcon>
#include <QPainter>
#include <QPixmapCache>
#include <QPrinter>
#include <cmath>

#include "controls/pictures.h"
#include "controls/shown_text.h"
#include "platform/qtext.h"
#include "platform/waiting.h"

namespace print {
namespace {

constexpr int pointsInTwips = 20;
constexpr int fontSize = 10;
constexpr int pixelsOfPicture = 64;  // sharp enough at 200 twips, and stored once a document

void drawText(QPainter& painter, const PlacedText& placed, const QFontMetricsF& metrics) {
    const QString text = controls::onOneLine(platform::qtext(placed.text));  // as the list shows it
    const double left = placed.x + placed.blanks * metrics.horizontalAdvance(u' ');
    const double baseline = placed.y + metrics.ascent();
    const double width = placed.room > 0 ? metrics.horizontalAdvance(text) : 0;
    if (width <= placed.room) {
        painter.drawText(QPointF(left, baseline), text);
        return;
    }
    painter.save();
    painter.translate(left, baseline);
    painter.scale(placed.room / width, 1);
    painter.drawText(QPointF(0, 0), text);
    painter.restore();
}

QPixmap reportPicture(int number) {
    const QString key = QStringLiteral("report-picture-%1").arg(number);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = controls::picture(number).pixmap(QSize(pixelsOfPicture, pixelsOfPicture), 1);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

}  // namespace

QFont reportFont() {
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(fontSize * pointsInTwips);
    font.setHintingPreference(QFont::PreferNoHinting);
    // Too little to be seen, but it keeps ligatures out, which a search in a PDF would not find.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.05);
    return font;
}

int reportLineHeight() {
    return static_cast<int>(std::ceil(QFontMetricsF(reportFont()).height()));
}

void drawPage(QPainter& painter, const Page& page) {
    painter.setFont(reportFont());
    const QFontMetricsF metrics(painter.font());
    for (const PlacedPicture& placed : page.pictures)
        painter.drawPixmap(QRect(placed.x, placed.y, placed.size, placed.size),
                           reportPicture(placed.picture));
    for (const PlacedText& placed : page.texts) drawText(painter, placed, metrics);
}

bool printList(QPainter& painter, QPrinter& printer, const RowSource& rows, core::Language idioma) {
    const PageLayout layout(rows, idioma, reportLineHeight());
    for (std::int64_t number = 1; number <= layout.pageCount(); ++number) {
        if (number > 1 && !printer.newPage()) return false;
        drawPage(painter, layout.page(number));
        platform::Waiting::giveSign(double(number) / double(layout.pageCount()));
    }
    return true;
}

}  // namespace print
