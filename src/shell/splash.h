#pragma once

#include <QTimer>
#include <QWidget>

#include "core/language.h"

class QLabel;

namespace shell {

// Form2: the splash of the start, and the about box ever after.
class Form2 : public QWidget {
    Q_OBJECT
  public:
    explicit Form2(core::Language idioma, QWidget* parent = nullptr);

    void showAsSplash();  // starts the timer
    void showAsAbout();

    // One tick of the timer, which comes every 50 milliseconds; the twenty-first ends the splash.
    void tick();

  signals:
    void finished();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void buildContents();

    core::Language m_idioma;
    QLabel* m_picture = nullptr;
    QTimer m_timer;
    int m_ticks = 0;
};

}  // namespace shell
