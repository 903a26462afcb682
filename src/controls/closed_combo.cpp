#include "controls/closed_combo.h"

#include <QComboBox>
#include <QKeyEvent>

namespace controls {
namespace {

bool movesThroughItems(const QKeyEvent& event, bool editable) {
    switch (event.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return true;
        case Qt::Key_Home:
        case Qt::Key_End:
            return !editable;  // else they move in the text
        default:
            return false;
    }
}

}  // namespace

ClosedCombo::ClosedCombo(QComboBox* combo) : QObject(combo), m_combo(combo) {
    combo->installEventFilter(this);
}

bool ClosedCombo::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::KeyPress ||
        !movesThroughItems(static_cast<const QKeyEvent&>(*event), m_combo->isEditable()))
        return QObject::eventFilter(watched, event);
    m_combo->showPopup();
    return true;
}

}  // namespace controls

#include "moc_closed_combo.cpp"
