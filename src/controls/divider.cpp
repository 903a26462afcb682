#include "controls/divider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "controls/accessible.h"

namespace controls {
namespace {
constexpr int keyStep = 10;
}

Divider::Divider(QWidget* parent, BoundsNow bounds)
    : QWidget(parent), m_bar(new QWidget(parent)), m_bounds(std::move(bounds)) {
    installAccessibility();
    setObjectName(QStringLiteral("imgSplitter"));
    setCursor(Qt::SplitHCursor);
    setFocusPolicy(Qt::TabFocus);
    m_bar->setObjectName(QStringLiteral("picSplitter"));
    m_bar->setAutoFillBackground(true);
    m_bar->setBackgroundRole(QPalette::Dark);
    m_bar->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_bar->hide();
}

int Divider::bounded(int x) const {
    const Bounds bounds = m_bounds();
    return std::max(bounds.low, std::min(x, bounds.high));
}

void Divider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    m_grip = event->position().toPoint().x();
    m_bar->setGeometry(geometry());
    m_bar->show();
    m_bar->raise();
    m_dragging = true;
    emit pressed();
}

void Divider::mouseMoveEvent(QMouseEvent* event) {
    if (!m_dragging) return;
    const int x = bounded(this->x() + event->position().toPoint().x() - m_grip);
    m_bar->move(x, m_bar->y());
    emit moved(x);
}

void Divider::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_dragging || event->button() != Qt::LeftButton) return;
    m_dragging = false;
    m_bar->hide();
    emit released(m_bar->x());
}

void Divider::keyPressEvent(QKeyEvent* event) {
    const bool left = event->key() == Qt::Key_Left;
    if (left || event->key() == Qt::Key_Right)
        emit released(bounded(x() + (left ? -keyStep : keyStep)));
    else
        QWidget::keyPressEvent(event);
}

void Divider::focusInEvent(QFocusEvent*) {
    update();
}
void Divider::focusOutEvent(QFocusEvent*) {
    update();
}

void Divider::paintEvent(QPaintEvent*) {
    if (hasFocus()) QPainter(this).fillRect(rect(), palette().color(QPalette::Highlight));
}

}  // namespace controls

#include "moc_divider.cpp"
