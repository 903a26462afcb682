// Every window on screens of several sizes: runs once for each, see CMakeLists.txt.

#include <QScreen>
#include <QWindow>

#include "support/every_window.h"

namespace {

using core::Language;

class Screens : public test::EveryWindow {
  protected:
    // The window and every control that shows in it lie within the screen.
    void expectInside(const QWidget& window) {
        QApplication::processEvents();
        SCOPED_TRACE(window.objectName().toStdString());
        const QRect free = form->screen()->availableGeometry();
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
    for (const Language idioma : {Language::Spanish, Language::English})
        showEach(idioma, [this](QWidget& window) {
            // Where there are two, the person has taken the main window to the other one.
            if (QScreen* last = QGuiApplication::screens().last(); form->screen() != last) {
                form->windowHandle()->setScreen(last);
                form->move(last->availableGeometry().topLeft() + QPoint(100, 60));
            }
            for (const char* size : {"Pequeño", "Grande"}) {
                choose(size);
                expectInside(window);
            }
        });
}

TEST_F(Screens, HoldWhatLargeLettersSay) {
    const QSize free = QGuiApplication::primaryScreen()->availableGeometry().size();
    if (free.width() < 1900) GTEST_SKIP() << "no room";
    const QFont usual = QApplication::font();
    QApplication::setFont(QFont(usual.family(), 24));
    startWithFotos(Language::Spanish);
    choose("explorar");
    click("Fotos :");
    choose("graficos");
    choose("Propiedades");
    const QFontMetrics letters(QApplication::font());
    EXPECT_GE(control("MSChart1").width(), 2 * letters.horizontalAdvance("12345 (50 %)") + 200)
        << "with lines, icons and a pie";
    EXPECT_GE(control("Form3").findChild<QWidget*>("Text4")->width(),
              letters.horizontalAdvance("1234 archivos y 567 carpetas."));
    QApplication::setFont(usual);
}

}  // namespace
