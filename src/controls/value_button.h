#pragma once

#include <QToolButton>

namespace controls {

// A tool button with a Value, pressed or up, that a click never turns over by itself. To a screen reader it
// is a button, not a box to check.
class ValueButton : public QToolButton {
    Q_OBJECT
  public:
    explicit ValueButton(QWidget* parent = nullptr);

    void setPressed(bool pressed);
    [[nodiscard]] bool isPressed() const { return m_pressed; }

  protected:
    void initStyleOption(QStyleOptionToolButton* option) const override;

  private:
    bool m_pressed = false;
};

}  // namespace controls
