#pragma once

#include "shell/language_chooser.h"
#include "shell/quick_start.h"
#include "shell/splash.h"
#include "support/main_window.h"

namespace test {

class EveryWindow : public MainWindow {
  protected:
    // Shows what the windows of the program show, one after the other, each filled.
    template <class See>
    void showEach(core::Language idioma, See see) {
        startWithFotos(idioma);
        choose("explorar");
        click("Fotos :");
        see(*form);
        choose("graficos");
        see(control("Form4"));
        choose("Propiedades");
        see(control("Form3"));
        for (const char* panel : {"buscar", "explore"}) {
            choose(panel);
            see(*form);
        }
        shell::Form8 quickStart(idioma);
        quickStart.setRecent(QString(300, u'a'));
        shell::Form2 about(idioma);
        shell::Form5 chooser;
        for (QWidget* window : std::initializer_list<QWidget*>{&quickStart, &about, &chooser}) {
            if (window == &about)
                about.showAsAbout();
            else
                window->show();
            see(*window);
        }
    }
};

}  // namespace test
