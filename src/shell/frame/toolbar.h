#pragma once

#include <QWidget>
#include <array>

#include "core/language.h"

class QToolButton;

namespace shell {

// Toolbar1: fifteen buttons, numbered from 1; 3 and 14 are separators. A button has a Value, pressed or up.
class Toolbar : public QWidget {
    Q_OBJECT
  public:
    enum Button { New = 1, Open, Separator3, Up, Import, Search, Explore, Refresh, Statistics, Delete, Views, Print,
                  Stop, Separator14, Exit };
    static constexpr int count = 15;

    explicit Toolbar(core::Language idioma, QWidget* parent = nullptr);

    void setPressed(int button, bool pressed);  // Explore, Search and Import exclude nothing by themselves
    [[nodiscard]] bool isPressed(int button) const;
    void releaseAll(int first, int last);
    void setEnabled(int button, bool enabled);
    void setEnabledRange(int first, int last, bool enabled);
    [[nodiscard]] bool isEnabled(int button) const;
    using QWidget::setEnabled;
    using QWidget::isEnabled;

    void showCaptions();  // botonescontexto
    void hideCaptions();  // botonessintexto: one blank on every button
    [[nodiscard]] QString caption(int button) const;
    // The only entries of the Open button's recent list (Toolbar1 drop-down); empty text removes it.
    void setRecent(const QString& path);
    [[nodiscard]] QToolButton* button(int button) const;  // nullptr for a separator

  signals:
    void clicked(int button);
    void viewChosen(int view);  // 1 to 4, from the drop-down of Views

  private:
    core::Language m_idioma;
    std::array<QToolButton*, count + 1> m_buttons{};
};

}  // namespace shell
