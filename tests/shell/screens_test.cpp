// Every window on screens of several sizes: runs once for each, see CMakeLists.txt.

#include <QScreen>

#include "shell/language_chooser.h"
#include "shell/quick_start.h"
#include "support/main_window.h"

namespace {

using core::Language;

class Screens : public test::MainWindow {
  protected:
    // The window and every control that shows in it lie within the screen.
    void expectInside(const QWidget& window) {
        QApplication::processEvents();
        SCOPED_TRACE(window.objectName().toStdString());
        const QRect free = QGuiApplication::primaryScreen()->availableGeometry();
        EXPECT_TRUE(free.contains(window.geometry()))
            << window.x() << ' ' << window.y() << ' ' << window.width() << ' ' << window.height();
        for (const auto* each : window.findChildren<QWidget*>()) {
            const bool named = each->objectName().size() > 3 && each->objectName().front().isUpper();
            if (!named || !each->isVisible() || each->window() != &window) continue;
            const QRect place(each->mapTo(&window, QPoint()), each->size());
            EXPECT_TRUE(window.rect().contains(place) || each->objectName() == "Frame1")
                << each->objectName().toStdString();
        }
    }
};

TEST_F(Screens, HoldEveryWindow) {
    for (const Language idioma : {Language::Spanish, Language::English}) {
        startWithFotos(idioma);
        choose("explorar");
        click("Fotos :");
        for (const char* size : {"Pequeño", "Grande"}) {
            choose(size);
            expectInside(*form);
        }
        choose("graficos");
        expectInside(control("Form4"));
        choose("Propiedades");
        expectInside(control("Form3"));
        choose("buscar");
        expectInside(*form);
        choose("explore");
        expectInside(*form);
        shell::Form8 quickStart(idioma);
        quickStart.setRecent(QString(300, u'a'));
        shell::Form5 chooser;
        for (QWidget* window : {static_cast<QWidget*>(&quickStart), static_cast<QWidget*>(&chooser)}) {
            window->show();
            expectInside(*window);
        }
    }
}

}  // namespace
