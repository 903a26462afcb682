#include "controls/step_buttons.h"

#include <QKeyEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QToolButton>
#include <QVBoxLayout>

#include "controls/accessible.h"

namespace controls {
namespace {

QToolButton* makeButton(QWidget* parent, Qt::ArrowType arrow, const QString& name) {
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    button->setMinimumSize(1, 1);  // 0 would stand for the style's own minimum
    return button;
}

}  // namespace

UpDown::UpDown(QWidget* parent)
    : QWidget(parent),
      m_up(makeButton(this, Qt::UpArrow, QStringLiteral("stepUp"))),
      m_down(makeButton(this, Qt::DownArrow, QStringLiteral("stepDown"))) {
    installAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    column->addWidget(m_up);
    column->addWidget(m_down);
    connect(m_up, &QToolButton::clicked, this, &UpDown::up);
    connect(m_down, &QToolButton::clicked, this, &UpDown::down);
    setButtonNames(QStringLiteral("+"), QStringLiteral("-"));
}

void UpDown::setButtonNames(const QString& up, const QString& down) {
    m_up->setAccessibleName(up);
    m_down->setAccessibleName(down);
}

QSize UpDown::sizeHint() const {
    return {fontMetrics().height() + 4, fontMetrics().height() + 10};
}

void UpDown::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up)
        emit up();
    else if (event->key() == Qt::Key_Down)
        emit down();
    else
        QWidget::keyPressEvent(event);
}

void UpDown::paintEvent(QPaintEvent*) {
    if (!hasFocus()) return;
    QStylePainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

}  // namespace controls

#include "moc_step_buttons.cpp"
