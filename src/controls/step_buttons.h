#pragma once

#include <QWidget>

class QToolButton;

namespace controls {

// A pair of small buttons, one over the other, that step a value which somebody else keeps. Held down they
// repeat; with the keyboard the pair is one stop, stepped by the arrow keys.
class UpDown : public QWidget {
    Q_OBJECT
  public:
    explicit UpDown(QWidget* parent = nullptr);

    void setButtonNames(const QString& up, const QString& down);  // as read to the blind
    [[nodiscard]] QSize sizeHint() const override;

  signals:
    void up();
    void down();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QToolButton* m_up;
    QToolButton* m_down;
};

}  // namespace controls
