#include "frame/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include "controls/shown_text.h"
#include "controls/tool_tip.h"

namespace frame {

ElidedLabel::ElidedLabel(QWidget* parent, Qt::TextElideMode mode) : QLabel(parent), m_mode(mode) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

bool ElidedLabel::fits() const {
    return fontMetrics().horizontalAdvance(text()) <= contentsRect().width();
}

// It may tell a name from anywhere, in which the base class would take a '&' for the mark of a letter to
// press.
void ElidedLabel::paintEvent(QPaintEvent*) {
    const QString line = controls::onOneLine(text());
    QPainter painter(this);
    const QRect area = contentsRect();
    const QString shown = fontMetrics().elidedText(line, m_mode, area.width());
    style()->drawItemText(&painter, area, static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && !fits()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), controls::toolTipOf(text()), this);
        return true;
    }
    return QLabel::event(event);
}

}  // namespace frame
