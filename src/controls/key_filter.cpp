#include "controls/key_filter.h"

#include <QComboBox>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

namespace controls {
namespace {

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isShortcut(const QKeyEvent& event) {
    // AltGr, which reaches us as Ctrl+Alt on some systems, types characters.
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return modifiers != Qt::NoModifier && modifiers != (Qt::ControlModifier | Qt::AltModifier);
}

bool isTyped(char32_t character) {
    return character >= U' ' && character != U'\x7f';
}

}  // namespace

KeyFilter::KeyFilter(QWidget* widget, Allowed allowed, OnEnter onEnter)
    : QObject(widget), m_allowed(std::move(allowed)), m_onEnter(std::move(onEnter)) {
    widget->installEventFilter(this);
}

KeyFilter* KeyFilter::install(QLineEdit* field, Allowed allowed, OnEnter onEnter) {
    return new KeyFilter(field, std::move(allowed), std::move(onEnter));
}

KeyFilter* KeyFilter::install(QComboBox* combo, Allowed allowed, OnEnter onEnter) {
    // The field of an editable combo lends its focus to the combo, which hands keys to it past all filters.
    auto* filter = new KeyFilter(combo, std::move(allowed), std::move(onEnter));
    if (combo->isEditable()) combo->lineEdit()->installEventFilter(filter);
    return filter;
}

bool KeyFilter::holdsBack(const QString& text) const {
    const auto characters = text.toUcs4();
    return m_allowed && std::any_of(characters.begin(), characters.end(), [this](char32_t character) {
               return isTyped(character) && !m_allowed(character);
           });
}

bool KeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::InputMethod)
        return holdsBack(static_cast<QInputMethodEvent*>(event)->commitString());
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (isEnter(key) && m_onEnter) {
        m_onEnter();
        return true;
    }
    return !isShortcut(key) && holdsBack(key.text());
}

}  // namespace controls

#include "moc_key_filter.cpp"
