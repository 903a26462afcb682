#include "frame/menus.h"

#include <QMenu>

#include "frame/captions.h"
#include "frame/icons.h"
#include "platform/qtext.h"

namespace frame {

namespace {

enum class Kind { Menu, Popup, Entry, Separator, Unchecked, Checked };

struct Row {
    Kind kind;
    std::string_view name;
    std::string_view parent;          // empty for a menu of the bar
    std::string_view shortcuts = {};  // the one that the menu shows, then others; of a popup only shown
    bool enabled = true;
};

using enum Kind;

constexpr bool off = false;

// clang-format off
constexpr Row rows[] = {
    {Menu, "archivos", ""},
        {Entry, "nuevo", "archivos", "Ctrl+N"},
        {Entry, "abrir", "archivos", "Ctrl+O"},
        {Entry, "reciente", "archivos", "Ctrl+R"},
        {Separator, "barra1", "archivos"},
        {Entry, "guardar", "archivos", "Ctrl+Shift+S"},
        {Entry, "cerrar", "archivos", "Ctrl+W"},
        {Entry, "Imprimir", "archivos", "Ctrl+P"},
        {Separator, "barra3", "archivos"},
        {Entry, "salir", "archivos", "Ctrl+Q"},
    {Menu, "edicion", ""},
        {Entry, "explore", "edicion", "Ctrl+I"},
        {Entry, "buscar", "edicion", "Ctrl+S; Ctrl+F"},
        {Entry, "explorar", "edicion", "Ctrl+E"},
        {Separator, "barra23", "edicion"},
        {Menu, "borr", "edicion"},
            {Entry, "eliminar", "borr"},
            {Entry, "borrarunidad1", "borr"},
        {Separator, "barra25", "edicion"},
        {Entry, "Parar1", "edicion", "Ctrl+T; Esc", off},
        {Separator, "Barra9", "edicion"},
        {Entry, "actualizar1", "edicion", "F5"},
        {Separator, "barra35", "edicion"},
        {Entry, "Copiararchivos", "edicion", "", off},
    {Menu, "ver", ""},
        {Menu, "Tamañodefuente", "ver"},
            {Checked, "Pequeño", "Tamañodefuente"},
            {Unchecked, "Mediano", "Tamañodefuente"},
            {Unchecked, "Grande", "Tamañodefuente"},
        {Separator, "barra33", "ver"},
        {Menu, "barradetareas", "ver"},
            {Checked, "botonescontexto", "barradetareas"},
            {Unchecked, "botonessintexto", "barradetareas"},
        {Separator, "barra5", "ver"},
        {Menu, "vistas", "ver"},
            {Unchecked, "Iconosgrandes", "vistas"},
            {Unchecked, "Iconospequeños", "vistas"},
            {Unchecked, "lista", "vistas"},
            {Checked, "Detalle", "vistas"},
        {Separator, "barra32", "ver"},
        {Entry, "arriba", "ver", "Alt+Up"},
        {Separator, "barra30", "ver"},
        {Unchecked, "iniciomenu", "ver"},
    {Menu, "Herramientas", ""},
        {Entry, "graficos", "Herramientas"},
        {Separator, "barra22", "Herramientas"},
        {Entry, "compactar", "Herramientas"},
        {Separator, "barra8", "Herramientas"},
        {Entry, "reparar", "Herramientas"},
    {Menu, "ayuda", ""},
        {Menu, "idioma1", "ayuda"},
            {Unchecked, "español", "idioma1"},
            {Unchecked, "English", "idioma1"},
        {Separator, "barra31", "ayuda"},
        {Entry, "soporte", "ayuda"},
        {Entry, "website", "ayuda"},
        {Entry, "feedback", "ayuda"},
        {Separator, "barra6", "ayuda"},
        {Entry, "acerca", "ayuda"},
    {Popup, "popup", ""},
        {Entry, "abrirnodo", "popup"},
        {Separator, "barra7", "popup"},
        {Entry, "cambiarnombre", "popup", "F2"},
        {Entry, "graficos2", "popup"},
        {Entry, "borrarunidad", "popup", "Del"},
        {Separator, "Barra21", "popup"},
        {Entry, "Propiedades", "popup"},
    {Popup, "popup2", ""},
        {Entry, "abrirlistitem", "popup2"},
        {Separator, "Barra20", "popup2"},
        {Entry, "Copiararchivos2", "popup2", "", off},
        {Separator, "barra36", "popup2"},
        {Entry, "insertarcomentario", "popup2"},
        {Entry, "vercomentarios", "popup2"},
        {Separator, "barra37", "popup2"},
        {Unchecked, "filacompleta", "popup2"},
};
// clang-format on

void keepMarkOnClick(QAction* entry) {
    QObject::connect(entry, &QAction::triggered, entry, [entry](bool turned) { entry->setChecked(!turned); });
}

QAction* makeEntry(const Row& row, core::Language idioma, QObject* owner) {
    auto* entry = new QAction(owner);
    entry->setSeparator(row.kind == Separator);
    entry->setText(caption(platform::qtext(row.name), idioma));
    if (!row.shortcuts.empty())
        entry->setShortcuts(QKeySequence::listFromString(platform::qtext(row.shortcuts)));
    entry->setEnabled(row.enabled);
    entry->setMenuRole(QAction::NoRole);
    if (row.kind == Checked || row.kind == Unchecked) {
        entry->setCheckable(true);
        entry->setChecked(row.kind == Checked);
        keepMarkOnClick(entry);
    }
    return entry;
}

}  // namespace

MenuBar::MenuBar(core::Language idioma, QWidget* parent) : QMenuBar(parent) {
    for (const Row& row : rows) {
        const QString name = platform::qtext(row.name);
        const QString parentName = platform::qtext(row.parent);
        if (row.kind == Menu || row.kind == Popup) {
            auto* menu = new QMenu(caption(name, idioma), this);
            menu->setObjectName(name);
            if (row.kind == Menu) {
                row.parent.empty() ? addMenu(menu) : m_actions[parentName]->menu()->addMenu(menu);
            }
            m_actions[name] = menu->menuAction();
        } else {
            m_actions[name] = makeEntry(row, idioma, this);
            m_actions[parentName]->menu()->addAction(m_actions[name]);
        }
        m_actions[name]->setObjectName(name);
    }
    m_popup = action(QStringLiteral("popup"))->menu();
    m_popup2 = action(QStringLiteral("popup2"))->menu();
    const bool spanish = idioma == core::Language::Spanish;
    checkOnly(spanish ? QStringLiteral("español") : QStringLiteral("English"));
}

QAction* MenuBar::action(const QString& name) const {
    QAction* found = m_actions.value(name);
    Q_ASSERT_X(found, "MenuBar::action", qPrintable(name));
    return found;
}

void MenuBar::setEnabled(const QString& name, bool enabled) {
    action(name)->setEnabled(enabled);
}

void MenuBar::setChecked(const QString& name, bool checked) {
    action(name)->setChecked(checked);
}

void MenuBar::checkOnly(const QString& name) {
    QAction* chosen = action(name);
    for (const auto* holder : chosen->associatedObjects()) {
        const auto* menu = qobject_cast<const QMenu*>(holder);
        if (!menu) continue;
        for (QAction* sibling : menu->actions()) {
            if (sibling->isCheckable()) sibling->setChecked(sibling == chosen);
        }
    }
}

void MenuBar::attachIcons() {
    for (auto entry = m_actions.cbegin(); entry != m_actions.cend(); ++entry) {
        if (!entry.value()->isCheckable()) entry.value()->setIcon(iconOf(entry.key()));
    }
}

}  // namespace frame

#include "moc_menus.cpp"
