#pragma once

#include <QString>

namespace controls {

// Gives an object the name by which it is found, and hands it on.
template <class Object>
Object* named(Object* object, const char* name) {
    object->setObjectName(QString::fromUtf8(name));
    return object;
}

}  // namespace controls
