#include "frame/enabling.h"

namespace frame {

namespace {

using Condition = bool (*)(const WindowState&);

bool whenOpen(const WindowState& state) {
    return state.catalogueOpen;
}
bool whenRunning(const WindowState& state) {
    return state.running;
}
bool whenIdle(const WindowState& state) {
    return !state.running;
}
bool whenRows(const WindowState& state) {
    return state.listHasRows;
}
bool whenNotOfFolder(const WindowState& state) {
    return !state.menuOfFolder;
}
bool whenRecent(const WindowState& state) {
    return !state.recentMissing;
}
bool whenStoppable(const WindowState& state) {
    return state.catalogueOpen && state.running;
}

struct EntryRule {
    std::string_view name;
    Condition condition;
};

constexpr EntryRule entryRules[] = {
    {"guardar", whenOpen},
    {"explorar", whenOpen},
    {"Imprimir", whenOpen},
    {"explore", whenOpen},
    {"cerrar", whenOpen},
    {"buscar", whenOpen},
    {"edicion", whenOpen},
    {"ver", whenOpen},
    {"Herramientas", whenOpen},
    {"reciente", whenRecent},
    {"Parar1", whenRunning},
    {"compactar", whenIdle},
    {"reparar", whenIdle},
    {"cambiarnombre", whenNotOfFolder},
    {"borrarunidad", whenNotOfFolder},
    {"Copiararchivos", whenRows},
    {"Copiararchivos2", whenRows},
};

struct ButtonRule {
    int first, last;
    Condition condition;
};

constexpr ButtonRule buttonRules[] = {
    {4, 12, whenOpen},
    {13, 13, whenStoppable},
};

}  // namespace

Enabled enabledIn(const WindowState& state) {
    Enabled result;
    for (const EntryRule& rule : entryRules) result.entries.push_back({rule.name, rule.condition(state)});
    result.buttons.fill(true);
    for (const ButtonRule& rule : buttonRules) {
        for (int button = rule.first; button <= rule.last; ++button)
            result.buttons[button] = rule.condition(state);
    }
    return result;
}

}  // namespace frame
