#include "controls/link_label.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include "controls/accessible.h"

namespace controls {
namespace {

constexpr int margin = 6;
constexpr int gap = 4;

QColor mixed(const QColor& front, const QColor& back, qreal share) {
    return QColor::fromRgbF(front.redF() * share + back.redF() * (1 - share),
                            front.greenF() * share + back.greenF() * (1 - share),
                            front.blueF() * share + back.blueF() * (1 - share));
}

}  // namespace

ClickableLabel::ClickableLabel(QWidget* parent) : QAbstractButton(parent) {
    installAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
}

ClickableLabel::ClickableLabel(const QString& text, QWidget* parent) : ClickableLabel(parent) {
    setText(text);
}

void ClickableLabel::setAlignment(Qt::Alignment alignment) {
    m_alignment = alignment;
    update();
}

QSize ClickableLabel::sizeHint() const {
    QSize size = fontMetrics().size(Qt::TextShowMnemonic, text());
    if (!icon().isNull()) {
        size.rwidth() += iconSize().width() + gap;
        size.setHeight(std::max(size.height(), iconSize().height()));
    }
    return size + QSize(2 * margin, 2 * margin);
}

QSize ClickableLabel::minimumSizeHint() const {
    return sizeHint();
}

void ClickableLabel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void ClickableLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor ground = palette().color(QPalette::Window);
    const bool raised = isEnabled() && (underMouse() || hasFocus() || isDown());
    if (raised) {
        painter.setPen(mixed(accent, ground, hasFocus() || isDown() ? 1.0 : 0.5));
        painter.setBrush(mixed(accent, ground, isDown() ? 0.4 : underMouse() ? 0.2 : 0.08));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    }

    QRect inner = rect().adjusted(margin, 0, -margin, 0);
    if (!icon().isNull()) {
        const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
        const int free = std::max(0, inner.width() - textWidth - iconSize().width() - gap);
        const int indent = (m_alignment & Qt::AlignHCenter) != 0 ? free / 2 : 0;
        const QRect place(inner.x() + indent, 0, iconSize().width(), height());
        icon().paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
        inner.setLeft(place.right() + 1 + gap);
    }
    const auto alignment = icon().isNull() ? m_alignment : Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter);
    style()->drawItemText(&painter, inner, static_cast<int>(alignment) | Qt::TextShowMnemonic, palette(),
                          isEnabled(), text(), foregroundRole());
}

}  // namespace controls

#include "moc_link_label.cpp"
