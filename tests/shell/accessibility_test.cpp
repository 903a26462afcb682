// What a screen reader meets in the windows.

#include <QAccessible>
#include <QMetaEnum>
#include <map>

#include "support/every_window.h"

namespace {

using core::Language;
using test::Names;

struct Told {
    QAccessibleInterface* control;
    int depth;
    [[nodiscard]] QString name() const { return control->text(QAccessible::Name); }
    [[nodiscard]] QString objectName() const {
        return control->object() ? control->object()->objectName() : "";
    }
    [[nodiscard]] std::string line() const {
        const QMetaEnum roles = QMetaEnum::fromType<QAccessible::Role>();
        return std::string(static_cast<std::size_t>(depth) * 2, ' ') + roles.valueToKey(control->role()) +
               " '" + name().toStdString() + "' = '" + control->text(QAccessible::Value).toStdString() +
               "' " + objectName().toStdString() + (control->state().focusable ? " *" : "");
    }
};

void listen(QAccessibleInterface* control, std::vector<Told>& told, int depth = 0) {
    if (!control || control->state().invisible) return;
    told.push_back({control, depth});
    for (int child = 0; child < control->childCount(); ++child)
        listen(control->child(child), told, depth + 1);
}

const std::map<QString, QAccessible::Role> roles = {
    {"Toolbar1(1)", QAccessible::Button},   {"Toolbar1(11)", QAccessible::ButtonDropDown},
    {"Label5", QAccessible::Button},        {"Label19", QAccessible::Button},
    {"Label20", QAccessible::Button},       {"ImageCombo1", QAccessible::ComboBox},
    {"ImageCombo2", QAccessible::ComboBox}, {"Combo2", QAccessible::ComboBox},
    {"TreeView1", QAccessible::Tree},       {"imgSplitter", QAccessible::Splitter},
    {"UpDown1", QAccessible::SpinBox},      {"DTPicker1", QAccessible::SpinBox},
    {"Check1(0)", QAccessible::CheckBox},   {"Text10", QAccessible::EditableText},
};

std::string faultOf(const Told& told) {
    using enum QAccessible::Role;
    const QString name = told.name();
    const QAccessible::Role role = told.control->role();
    const bool focusable = told.control->state().focusable;
    if ((role == StaticText && !focusable) || role == Window || role == Dialog || role == TreeItem)
        return {};  // their own texts
    const auto wanted = roles.find(told.objectName());
    if (wanted != roles.end() && role != wanted->second) return "wrong role";
    if (name != name.trimmed()) return "blanks around the name";
    if (!name.isEmpty() && name == told.control->text(QAccessible::Description)) return "heard twice";
    if (role != ColumnHeader && !focusable) return {};
    if (name.isEmpty()) return "no name";
    if (role == NoRole || role == Client || role == StaticText) return "no role";
    const bool hasValue = role == ComboBox || role == EditableText || role == SpinBox;
    return hasValue && name == told.control->text(QAccessible::Value) ? "named by its value" : "";
}

// The whole tree stands in the message when something in it is wrong.
void expectWellTold(QWidget& window) {
    QApplication::processEvents();
    std::vector<Told> told;
    listen(QAccessible::queryAccessibleInterface(&window), told);
    EXPECT_GT(told.size(), 3u);
    std::string tree;
    int faults = 0;
    for (const Told& each : told) {
        const std::string fault = faultOf(each);
        faults += !fault.empty();
        tree += each.line() + (fault.empty() ? "\n" : "   <-- " + fault + '\n');
    }
    EXPECT_EQ(faults, 0) << tree;
    if (qEnvironmentVariableIsSet("ZARQUELIN_SHOW_TREES")) std::puts(tree.c_str());
}

using Accessibility = test::EveryWindow;

TEST_F(Accessibility, EveryControlHasARoleAndANameOfItsOwn) {
    for (const Language idioma : {Language::Spanish, Language::English})
        showEach(idioma, [this](QWidget& window) {
            if (&window == form.get() && control("Picture1").isHidden() && control("Picture2").isHidden()) {
                clickRow(surface().lists.listView1, 0);
                choose("insertarcomentario");
            }
            expectWellTold(window);
            for (QTabBar* tabs : window.findChildren<QTabBar*>())
                for (int tab = 1; tabs->isVisible() && tab < tabs->count(); ++tab) {
                    tabs->setCurrentIndex(tab);
                    expectWellTold(window);
                }
        });
}

TEST_F(Accessibility, TheTabKeyGoesThroughTheWindowAsItIsRead) {
    startWithFotos();
    choose("explorar");
    click("Fotos :");
    frame().toolbar.button(1)->setFocus();
    Names stops = tabStops();
    ASSERT_EQ(stops.back(), "Toolbar1(1)");
    const auto isButton = [](const std::string& stop) { return stop.starts_with("Toolbar1("); };
    stops.erase(stops.begin(), std::ranges::find_if_not(stops, isButton));
    EXPECT_EQ(stops, (Names{"ImageCombo1", "TreeView1", "ListView1", "imgSplitter", "Toolbar1(1)"}));
}

TEST_F(Accessibility, APressedButtonSaysSo) {
    startWithFotos();
    choose("buscar");
    const auto pressed = [this](int button) {
        return QAccessible::queryAccessibleInterface(frame().toolbar.button(button))->state().pressed;
    };
    EXPECT_TRUE(pressed(frame::Toolbar::Search));
    EXPECT_FALSE(pressed(frame::Toolbar::Explore));
}

}  // namespace
