#include "controls/tab_strip.h"

#include <QEvent>
#include <QFontMetrics>
#include <QScopedValueRollback>
#include <QStyleOptionTab>
#include <QStylePainter>
#include <algorithm>

namespace controls {
namespace {

constexpr int widestPadding = 28;
constexpr int narrowestPadding = 6;
constexpr int smallestPoints = 6;

}  // namespace

TabStrip::TabStrip(QWidget* parent) : QTabBar(parent) {
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
    setExpanding(false);
    setDrawBase(false);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    parent->installEventFilter(this);
}

QSize TabStrip::minimumSizeHint() const {
    return {1, QTabBar::minimumSizeHint().height()};
}

int TabStrip::textWidth(const QFont& font, int index) const {
    return QFontMetrics(font).horizontalAdvance(tabText(index).trimmed());
}

int TabStrip::textsWidth(const QFont& font) const {
    int width = 0;
    for (int index = 0; index < count(); ++index) width += textWidth(font, index);
    return width;
}

QSize TabStrip::tabSizeHint(int index) const {
    const int padding = (width() - textsWidth(font())) / std::max(1, count());
    return {textWidth(font(), index) + std::clamp(padding, narrowestPadding, widestPadding),
            QTabBar::tabSizeHint(index).height()};
}

void TabStrip::fitLetters() {
    if (m_fitting) return;
    const QScopedValueRollback guard(m_fitting, true);
    QFont fitting = parentWidget()->font();
    while (fitting.pointSize() > smallestPoints && textsWidth(fitting) + count() * narrowestPadding > width())
        fitting.setPointSize(fitting.pointSize() - 1);
    if (fitting.pointSize() != font().pointSize()) setFont(fitting);
}

// The style would cut the text at margins of its own, which narrow tabs don't have.
void TabStrip::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    const auto paintTab = [&](int index) {
        QStyleOptionTab option;
        initStyleOption(&option, index);
        painter.drawControl(QStyle::CE_TabBarTabShape, option);
        painter.drawItemText(option.rect, Qt::AlignCenter, palette(), isEnabled(), tabText(index).trimmed(),
                             QPalette::WindowText);
        if (!(option.state & QStyle::State_HasFocus)) return;
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = option.rect.adjusted(3, 3, -3, -3);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    };
    for (int index = 0; index < count(); ++index)
        if (index != currentIndex()) paintTab(index);
    if (currentIndex() >= 0) paintTab(currentIndex());  // over its neighbours
}

void TabStrip::resizeEvent(QResizeEvent* event) {
    fitLetters();
    QTabBar::resizeEvent(event);
}

bool TabStrip::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::FontChange) fitLetters();
    return QTabBar::eventFilter(watched, event);
}

void TabStrip::tabLayoutChange() {
    QTabBar::tabLayoutChange();
    fitLetters();
}

}  // namespace controls

#include "moc_tab_strip.cpp"
