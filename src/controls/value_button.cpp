#include "controls/value_button.h"

#include <QStyleOptionToolButton>

#include "controls/accessible.h"

namespace controls {

ValueButton::ValueButton(QWidget* parent) : QToolButton(parent) {
    installAccessibility();
}

void ValueButton::setPressed(bool pressed) {
    if (m_pressed == pressed) return;
    m_pressed = pressed;
    update();
    QAccessible::State changed;
    changed.pressed = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void ValueButton::initStyleOption(QStyleOptionToolButton* option) const {
    QToolButton::initStyleOption(option);
    if (!m_pressed) return;
    option->state &= ~QStyle::State_Raised;
    option->state |= QStyle::State_On;
}

}  // namespace controls

#include "moc_value_button.cpp"
