#include "platform/controls/tab_strip.h"

#include <QEvent>
#include <QFontMetrics>

namespace controls {
namespace {

constexpr int padding = 12;
constexpr double smallestPoints = 6;

int narrowestTab(const QFont& font, const QString& caption) {
    return QFontMetrics(font).horizontalAdvance(caption.trimmed()) + padding;
}

}  // namespace

TabStrip::TabStrip(QWidget* parent) : QTabBar(parent) {
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
    parent->installEventFilter(this);
}

QSize TabStrip::minimumSizeHint() const {
    return {0, QTabBar::minimumSizeHint().height()};
}

QSize TabStrip::minimumTabSizeHint(int index) const {
    return {narrowestTab(font(), tabText(index)), tabSizeHint(index).height()};
}

void TabStrip::resizeEvent(QResizeEvent* event) {
    fit();
    QTabBar::resizeEvent(event);
}

void TabStrip::tabInserted(int index) {
    fit();
    QTabBar::tabInserted(index);
}

bool TabStrip::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::FontChange) fit();
    return QTabBar::eventFilter(watched, event);
}

int TabStrip::narrowestWidth(const QFont& font) const {
    int width = 0;
    for (int i = 0; i < count(); ++i) width += narrowestTab(font, tabText(i));
    return width;
}

void TabStrip::fit() {
    QFont fitting = parentWidget()->font();
    while (fitting.pointSizeF() > smallestPoints && narrowestWidth(fitting) > width())
        fitting.setPointSizeF(fitting.pointSizeF() - 0.5);
    if (fitting != font()) setFont(fitting);
}

}  // namespace controls
