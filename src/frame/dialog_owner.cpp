#include "frame/dialog_owner.h"

#include <QApplication>
#include <QMainWindow>
#include <algorithm>

namespace frame {

QWidget* dialogOwner() {
    QWidget* active = QApplication::activeWindow();
    if (active && active->isVisible()) return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto main = std::ranges::find_if(windows, [](const QWidget* window) {
        return window->isVisible() && qobject_cast<const QMainWindow*>(window);
    });
    return main == windows.end() ? nullptr : *main;
}

}  // namespace frame
