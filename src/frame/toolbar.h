#pragma once

#include <QString>
#include <QWidget>
#include <array>

#include "core/language.h"

namespace controls {
class ValueButton;
}

namespace frame {

// Toolbar1: fifteen buttons, numbered from 1; 3 and 14 are separators, which have a state like the others but
// nothing to click. A button has a Value, pressed or up: a press of the mouse anywhere on the bar puts 1 to
// 10 up, and only the procedures that run on a click press one again.
//
// Too narrow for its captions, the bar writes them smaller, and at last keeps the icons and their tool tips.
class Toolbar : public QWidget {
    Q_OBJECT
  public:
    enum Button {
        New = 1,
        Open,
        Separator3,
        Up,
        Import,
        Search,
        Explore,
        Refresh,
        Statistics,
        Delete,
        Views,
        Print,
        Stop,
        Separator14,
        Exit
    };
    static constexpr int count = 15;

    explicit Toolbar(core::Language idioma, QWidget* parent = nullptr);

    void setPressed(int button, bool pressed);  // of Import, Search and Explore only one is pressed
    [[nodiscard]] bool isPressed(int button) const;
    void releaseAll(int first, int last);
    void setEnabled(int button, bool enabled);
    [[nodiscard]] bool isEnabled(int button) const;
    using QWidget::isEnabled;
    using QWidget::setEnabled;

    void showCaptions();  // botonescontexto
    void hideCaptions();  // botonessintexto: one blank on every button
    [[nodiscard]] QString caption(int button) const;
    // The only entry of the drop-down list of button 4, a catalogue's path; an empty text removes the list.
    void setRecent(const QString& path);
    [[nodiscard]] controls::ValueButton* button(int button) const;  // nullptr for a separator

  signals:
    void clicked(int button);
    void viewChosen(int view);               // 1 to 4, from the drop-down of Views
    void recentChosen(const QString& path);  // the entry that setRecent put there

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    struct Item {
        QWidget* widget = nullptr;
        controls::ValueButton* button = nullptr;  // null for a separator
        bool pressed = false;
        bool enabled = true;
    };

    void addButton(int number);
    void addSeparator(int number);
    void addViewsMenu();
    void setCaption(int button, const QString& text);
    void chooseStyle();
    void setButtonStyle(Qt::ToolButtonStyle style, const QFont& font);
    [[nodiscard]] bool fits() const;

    core::Language m_idioma;
    std::array<Item, count + 1> m_items;  // by number; the first stays empty
};

}  // namespace frame
