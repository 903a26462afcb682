#include "frame/pointer.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>

namespace frame {

Hourglass::Hourglass(Shape shape) {
    QGuiApplication::setOverrideCursor(shape == Alone ? Qt::WaitCursor : Qt::BusyCursor);
}

Hourglass::~Hourglass() {
    QGuiApplication::restoreOverrideCursor();
}

void yieldToQueue() {
    QCoreApplication::processEvents();
}

void letWindowsPaint() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::X11ExcludeTimers);
}

}  // namespace frame
