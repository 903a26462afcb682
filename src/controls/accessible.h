#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace controls {

// Gives an object the name by which it is found, and hands it on.
template <class Object>
Object* named(Object* object, const char* name) {
    object->setObjectName(QString::fromUtf8(name));
    return object;
}

// What screen readers are told of the controls that the toolkit would call by their value, by a wrong role or
// twice: combos, our own buttons, the divider, the step buttons, links. Can be called as often as one likes.
void installAccessibility();

// What only adorns: a screen reader passes it by.
void silence(QWidget& widget);

// The name of a field, given to what lies inside it too: the line where one types and the list that drops
// down.
void nameField(QWidget& field, const QString& name);

}  // namespace controls
