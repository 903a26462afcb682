#include "controls/accessible.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "controls/divider.h"
#include "controls/step_buttons.h"
#include "controls/value_button.h"

namespace controls {
namespace {

constexpr const char* ornament = "isOrnament";

// A tool tip that repeats the name would be read a second time.
class ToldOnce : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] QString text(QAccessible::Text which) const override {
        if (which == QAccessible::Description) return widget()->accessibleDescription();
        return QAccessibleWidget::text(which);
    }
};

class Unheard : public ToldOnce {
  public:
    explicit Unheard(QWidget* widget) : ToldOnce(widget, QAccessible::Whitespace) {}

    [[nodiscard]] QString text(QAccessible::Text) const override { return {}; }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = ToldOnce::state();
        state.invisible = true;
        return state;
    }
};

class AccessibleButton : public ToldOnce {
  public:
    explicit AccessibleButton(QAbstractButton* button) : ToldOnce(button, QAccessible::Button) {}

    [[nodiscard]] QAccessible::Role role() const override {
        return menuButton() ? QAccessible::ButtonDropDown : QAccessible::Button;
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = ToldOnce::state();
        const auto* valued = qobject_cast<ValueButton*>(widget());
        state.pressed = button().isDown() || (valued && valued->isPressed());
        state.hasPopup = menuButton() != nullptr;
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = ToldOnce::actionNames();
        if (button().isEnabled()) names.prepend(pressAction());
        if (button().isEnabled() && menuButton()) names.append(showMenuAction());
        return names;
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            button().click();
        else if (action == showMenuAction() && menuButton())
            menuButton()->showMenu();
        else
            ToldOnce::doAction(action);
    }

  private:
    [[nodiscard]] QAbstractButton& button() const { return static_cast<QAbstractButton&>(*widget()); }
    [[nodiscard]] QToolButton* menuButton() const {
        auto* tool = qobject_cast<QToolButton*>(widget());
        return tool && tool->menu() ? tool : nullptr;
    }
};

class AccessibleCombo : public ToldOnce {
  public:
    explicit AccessibleCombo(QComboBox* combo) : ToldOnce(combo, QAccessible::ComboBox) {}

    [[nodiscard]] QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? combo().currentText() : ToldOnce::text(which);
    }
    [[nodiscard]] int childCount() const override { return combo().lineEdit() ? 2 : 1; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        if (index == 0) return QAccessible::queryAccessibleInterface(combo().view());
        return index == 1 ? QAccessible::queryAccessibleInterface(combo().lineEdit()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (child->object() == combo().view()) return 0;
        return combo().lineEdit() && child->object() == combo().lineEdit() ? 1 : -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        const bool inside = combo().rect().contains(combo().mapFromGlobal(QPoint(x, y)));
        return inside ? child(1) : nullptr;
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = ToldOnce::state();
        state.expandable = true;
        state.expanded = combo().view()->isVisible();
        state.editable = combo().isEditable();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{showMenuAction(), pressAction()} + ToldOnce::actionNames();
    }
    void doAction(const QString& action) override {
        if (action != showMenuAction() && action != pressAction()) return ToldOnce::doAction(action);
        combo().view()->isVisible() ? combo().hidePopup() : combo().showPopup();
    }

  private:
    [[nodiscard]] QComboBox& combo() const { return static_cast<QComboBox&>(*widget()); }
};

QAccessibleInterface* told(const QString&, QObject* object) {
    if (auto* widget = qobject_cast<QWidget*>(object); widget && widget->property(ornament).toBool())
        return new Unheard(widget);
    if (auto* combo = qobject_cast<QComboBox*>(object)) return new AccessibleCombo(combo);
    if (auto* button = qobject_cast<ValueButton*>(object)) return new AccessibleButton(button);
    if (auto* divider = qobject_cast<Divider*>(object)) return new ToldOnce(divider, QAccessible::Splitter);
    if (auto* steps = qobject_cast<UpDown*>(object)) return new ToldOnce(steps, QAccessible::SpinBox);
    auto* label = qobject_cast<QLabel*>(object);
    if (label && label->textInteractionFlags().testFlag(Qt::LinksAccessibleByKeyboard))
        return new ToldOnce(label, QAccessible::Link);
    return nullptr;
}

}  // namespace

void installAccessibility() {
    QAccessible::installFactory(told);  // which keeps it once
}

void silence(QWidget& widget) {
    installAccessibility();
    widget.setProperty(ornament, true);
}

void nameField(QWidget& field, const QString& name) {
    installAccessibility();
    field.setAccessibleName(name);
    for (auto* line : field.findChildren<QLineEdit*>()) line->setAccessibleName(name);
    if (auto* combo = qobject_cast<QComboBox*>(&field)) combo->view()->setAccessibleName(name);
}

}  // namespace controls
