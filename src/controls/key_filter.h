#pragma once

#include <QObject>
#include <functional>

class QComboBox;
class QLineEdit;
class QWidget;

namespace controls {

// Lets only some characters be typed into a field. Only characters are held back: keys that move or delete,
// shortcuts and pasting pass. Owned by the widget that it is installed on.
class KeyFilter : public QObject {
    Q_OBJECT
  public:
    using Allowed = std::function<bool(char32_t)>;  // empty: every character
    using OnEnter = std::function<void()>;          // empty: Enter passes

    static KeyFilter* install(QLineEdit* field, Allowed allowed, OnEnter onEnter = {});
    // Of any combo: one that is not editable picks an item by its letters.
    static KeyFilter* install(QComboBox* combo, Allowed allowed, OnEnter onEnter = {});

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    KeyFilter(QWidget* widget, Allowed allowed, OnEnter onEnter);
    [[nodiscard]] bool holdsBack(const QString& text) const;

    Allowed m_allowed;
    OnEnter m_onEnter;
};

}  // namespace controls
