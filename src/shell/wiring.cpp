// What runs for each menu entry, button and event of a control.

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>
#include <QMenu>
#include <QShortcut>
#include <functional>
#include <utility>

#include "frame/pointer.h"
#include "lists/column_sort.h"
#include "print/print_action.h"
#include "shell/kept_choices.h"
#include "shell/links.h"
#include "shell/main_window.h"
#include "shell/main_window_parts.h"

namespace shell {
namespace {

// For keyboards without that key, which is the only road to the notes but for the mouse.
void pressMenuKey() {
    QWidget* focused = QApplication::focusWidget();
    if (!focused) return;
    const QPoint place = focused->rect().center();
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, place, focused->mapToGlobal(place));
    QApplication::sendEvent(focused, &menuKey);
}

}  // namespace

void Form1::connectMenus() {
    MainWindowParts& parts = *m_parts;
    struct Entry {
        const char* name;
        std::function<void()> run;
    };
    const Entry entries[] = {
        {"nuevo", [this] { nuevoClicked(); }},
        {"abrir", [this] { abrirClicked(); }},
        {"reciente", [&] { parts.catalogueActions.reciente1(); }},
        {"guardar", [&] { parts.catalogueActions.guardar(); }},
        {"cerrar", [&] { parts.catalogueActions.cerrar(); }},
        {"Imprimir", [&] { print::Imprimir1(parts.frame, parts.surface.lists); }},
        {"salir", [this] { close(); }},

        {"explore", [&] { parts.switching.importFromMenu(); }},
        {"buscar", [&] { parts.switching.buscar1(); }},
        {"explorar", [&] { parts.switching.explorar1(); }},
        {"eliminar", [&] { parts.maintenance.eliminar(); }},
        {"borrarunidad1", [&] { parts.maintenance.borrarunidad(); }},
        {"Parar1", [this] { stop(); }},
        {"actualizar1", [this] { refresh(true); }},
        {"Copiararchivos", [this] { copyFiles(); }},

        {"Pequeño", [this] { setFontSize(8); }},
        {"Mediano", [this] { setFontSize(10); }},
        {"Grande", [this] { setFontSize(12); }},
        {"botonescontexto", [this] { showToolbarTexts(true); }},
        {"botonessintexto", [this] { showToolbarTexts(false); }},
        {"Iconosgrandes", [&] { parts.views.setView(1); }},
        {"Iconospequeños", [&] { parts.views.setView(2); }},
        {"lista", [&] { parts.views.setView(3); }},
        {"Detalle", [&] { parts.views.setView(4); }},
        {"arriba", [&] { parts.goingUp.arriba(); }},
        {"iniciomenu", [this] { toggleQuickStart(); }},

        {"graficos", [this] { showStatistics(); }},
        {"compactar", [&] { parts.maintenance.compactar(); }},
        {"reparar", [&] { parts.maintenance.reparar(); }},

        {"español", [&] { chooseLanguage(core::Language::Spanish, parts.frame); }},
        {"English", [&] { chooseLanguage(core::Language::English, parts.frame); }},
        {"soporte", [&] { openLink(Link::Support, parts.frame.idioma); }},
        {"website", [&] { openLink(Link::Website, parts.frame.idioma); }},
        {"feedback", [&] { openFeedback(parts.frame.idioma); }},
        {"acerca", [this] { emit aboutRequested(); }},

        {"abrirnodo", [this] { toggleNode(); }},
        {"cambiarnombre", [&] { parts.maintenance.cambiarnombre(); }},
        {"graficos2", [this] { showStatistics(); }},
        {"borrarunidad", [&] { parts.maintenance.borrarunidad(); }},
        {"Propiedades", [this] { showProperties(); }},

        {"abrirlistitem", [&] { parts.listActivation.abrirlistitem(); }},
        {"Copiararchivos2", [this] { copyFiles(); }},
        {"insertarcomentario", [&] { parts.picture12->insertarcomentario(); }},
        {"vercomentarios", [&] { parts.picture12->vercomentarios(); }},
        {"filacompleta", [&] { parts.views.toggleFullRow(); }},
    };
    for (const Entry& entry : entries)
        connect(parts.frame.menus.action(QString::fromUtf8(entry.name)), &QAction::triggered, this,
                entry.run);
}

void Form1::connectToolbar() {
    connect(m_parts->controls.toolbar, &frame::Toolbar::clicked, this, &Form1::runToolbarButton);
    connect(m_parts->controls.toolbar, &frame::Toolbar::viewChosen, this,
            [this](int view) { m_parts->views.setView(view); });
    connect(m_parts->controls.toolbar, &frame::Toolbar::recentChosen, this, [this](const QString& path) {
        m_parts->catalogueActions.reopen(QFile::encodeName(path).toStdString());
    });
}

void Form1::runToolbarButton(int button) {
    MainWindowParts& parts = *m_parts;
    frame::Toolbar& toolbar = parts.frame.toolbar;
    const auto release = [&toolbar](int pressed) { toolbar.setPressed(pressed, false); };
    using frame::Toolbar;
    const std::pair<Toolbar::Button, std::function<void()>> buttons[] = {
        {Toolbar::New, [&] { parts.catalogueActions.nuevo1(); }},
        {Toolbar::Open, [&] { parts.catalogueActions.abrir1(); }},
        {Toolbar::Up, [&] { parts.goingUp.arriba(); }},
        {Toolbar::Import, [&] { parts.switching.importar1(); }},
        {Toolbar::Search, [&] { parts.switching.buscar1(); }},
        {Toolbar::Explore, [&] { parts.switching.explorar1(); }},
        {Toolbar::Refresh, [this] { refresh(false); }},
        {Toolbar::Statistics, [&] { showStatistics(), release(Toolbar::Statistics); }},
        {Toolbar::Delete, [&] { parts.maintenance.borrarunidad(), release(Toolbar::Delete); }},
        {Toolbar::Views, [&] { parts.views.cycleView(); }},
        {Toolbar::Print, [&] { print::Imprimir1(parts.frame, parts.surface.lists); }},
        {Toolbar::Stop, [this] { stop(); }},
        {Toolbar::Exit, [this] { close(); }},
    };
    for (const auto& [number, run] : buttons)
        if (number == button) return run();
}

void Form1::connectControls() {
    MainWindowParts& parts = *m_parts;
    const WindowControls& controls = parts.controls;
    using controls::Divider;
    using controls::ImageCombo;
    using controls::TreeView;

    connect(controls.treeView1, &TreeView::nodeClicked, this, [&](int node) { parts.nodeClick.click(node); });
    connect(controls.treeView1, &TreeView::mousePressed, this, &Form1::treePressed);
    const auto* menuKey = new QShortcut(Qt::Key_F10, this);  // the menus' captions have no letters to press
    connect(menuKey, &QShortcut::activated, this,
            [menus = controls.menus] { menus->setActiveAction(menus->action(QStringLiteral("archivos"))); });
    const auto* popupKey = new QShortcut(Qt::SHIFT | Qt::Key_F10, this);
    connect(popupKey, &QShortcut::activated, this, &pressMenuKey);
    const auto* deleteKey =
        new QShortcut(QKeySequence::Delete, controls.treeView1, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, [&] { parts.maintenance.borrarunidad(); });
    connect(controls.treeView1, &TreeView::afterLabelEdit, this,
            [this](int node, const QString& text) { renameUnit(node, text); });
    connect(controls.imageCombo1, &ImageCombo::clicked, this,
            [&](int number) { parts.pathCombo.choose(number); });
    connect(controls.imageCombo1, &ImageCombo::textTyped, this, [&] { parts.pathCombo.textTyped(); });
    connect(controls.imgSplitter, &Divider::pressed, this, [this] { layOut(); });
    connect(controls.imgSplitter, &Divider::released, this, [&](int x) { parts.panes.sizeControls(x); });
    for (lists::ItemList* list : {controls.listView1, controls.listView2}) {
        connect(list, &lists::ItemList::itemClicked, this, [this, &parts, list](int row) {
            parts.listActivation.itemClicked(*list, row);
            listPressed();  // by a key, perhaps
        });
        connect(list, &lists::ItemList::itemActivated, this,
                [&parts, list](int) { parts.listActivation.doubleClicked(*list); });
        connect(list, &lists::ItemList::columnClicked, list, [list](int column) {
            const frame::Hourglass hourglass;  // millions of rows take seconds
            list->sort(lists::sortingAfterClick(list->store().sorting(), column));
        });
        connect(list, &lists::ItemList::mousePressed, this, [this] { listPressed(); });
        connect(list, &lists::ItemList::mouseReleased, this,
                [this](Qt::MouseButton button, const QPoint& place) { listReleased(button, place); });
    }
}

}  // namespace shell
