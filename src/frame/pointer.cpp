#include "frame/pointer.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>

namespace frame {

// The arrow with the hourglass: long work can be stopped, so the arrow has to stay usable.
Hourglass::Hourglass() {
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
}

Hourglass::~Hourglass() {
    QGuiApplication::restoreOverrideCursor();
}

void yieldToQueue() {
    QCoreApplication::processEvents();
}

}  // namespace frame
