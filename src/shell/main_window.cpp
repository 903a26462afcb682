#include "shell/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>

#include "browse/showing.h"
#include "controls/pictures.h"
#include "controls/screen_fit.h"
#include "frame/pointer.h"
#include "shell/kept_choices.h"
#include "shell/logo.h"
#include "shell/main_window_parts.h"
#include "shell/properties.h"
#include "shell/selection.h"

namespace shell {

Form1::Form1(core::Language idioma, frame::Messages& messages, frame::Dialogs& dialogs)
    : m_parts(std::make_unique<MainWindowParts>(*this, idioma, messages, dialogs)) {
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(QStringLiteral("Zarquelin"));
    setWindowIcon(logo());
    resize(1000, 660);
    setMinimumSize(480, 380);  // the import panel needs that height
    controls::fitToScreen(*this);
    qApp->installEventFilter(this);

    connectMenus();
    connectToolbar();
    connectControls();
    setFontSize(8);
    m_parts->views.setFullRow(false);
    showQuickStart();
    m_parts->showCatalogueOpen(false);
    m_parts->switching.hidePanels();
    m_parts->frame.catalogue.readLast();
}

Form1::~Form1() = default;

browse::Surface& Form1::surface() {
    return m_parts->surface;
}

void Form1::begin(const std::string& catalogue) {
    show();
    if (catalogue.empty()) return;
    m_parts->catalogue.setPath(catalogue);
    frame::yieldToQueue();
    m_parts->catalogueActions.abrirdesdearchivo();
}

void Form1::importFolder(const std::string& folder) {
    if (!m_parts->state.catalogueOpen) nuevo1();
    if (!m_parts->state.catalogueOpen) return;
    m_parts->switching.importFromMenu();
    m_parts->picture2->setDirectory(folder);
}

void Form1::nuevo1() {
    showQuickStart();
    m_parts->catalogueActions.nuevo1();
}

void Form1::abrir1() {
    showQuickStart();
    m_parts->catalogueActions.abrir1();
}

void Form1::reciente1() {
    showQuickStart();
    m_parts->catalogueActions.reciente1();
}

void Form1::recentIsMissing() {
    m_parts->state.recentMissing = true;
    m_parts->applyState();
}

void Form1::nuevoClicked() {
    m_parts->catalogueActions.nuevo1();
    m_parts->frame.toolbar.releaseAll(frame::Toolbar::New, frame::Toolbar::Stop);
    m_parts->frame.toolbar.setPressed(frame::Toolbar::New, true);
}

void Form1::abrirClicked() {
    m_parts->catalogueActions.abrir1();
    m_parts->frame.toolbar.releaseAll(frame::Toolbar::New, frame::Toolbar::Separator14);
    m_parts->frame.toolbar.setPressed(frame::Toolbar::Separator3, true);
}

void Form1::stop() {
    m_parts->surface.estado.pararCarga();
    m_parts->picture2->Parar();
}

// The menu's refresh leaves button 8 pressed, the toolbar's own lets it up.
void Form1::refresh(bool fromMenu) {
    m_parts->opening.actualizar();
    m_parts->switching.uncoverBrowsing();
    m_parts->frame.toolbar.setPressed(frame::Toolbar::Refresh, fromMenu);
}

// The rows in the list still name the unit as it was, so it is listed anew, once the edit is over.
void Form1::renameUnit(browse::Node unit, const QString& text) {
    const std::string disco = m_parts->surface.nodeText(unit);
    if (!m_parts->maintenance.rename(unit, text)) return;
    const auto listAnew = [this, unit, disco] {
        const browse::Surface& surface = m_parts->surface;
        const bool isListed = surface.estado.discoactual == disco && surface.isUnit(unit);
        if (isListed || surface.treeView1.selected() == unit) m_parts->nodeClick.click(unit);
    };
    QMetaObject::invokeMethod(this, listAnew, Qt::QueuedConnection);
}

void Form1::showStatistics() {
    browse::Surface& surface = m_parts->surface;
    m_parts->statistics.graficar1(selectionOf(surface), surface.contadores);
}

void Form1::copyFiles() {
    browse::Surface& surface = m_parts->surface;
    if (copyback::Copiararchivos(surface.frame, surface.lists, surface.clic)) surface.treeView1.setFocus();
}

void Form1::setFontSize(int points) {
    m_parts->views.setFontSize(points);
    m_parts->picture12->applyFontSize(points);
    layOut();
}

void Form1::showToolbarTexts(bool shown) {
    m_parts->views.showToolbarTexts(shown);
    layOut();
}

// The quick start saves it too, before it calls one of the entries.
void Form1::showQuickStart() {
    m_parts->frame.menus.setChecked(QStringLiteral("iniciomenu"), isQuickStartOn());
}

void Form1::toggleQuickStart() {
    frame::MenuBar& menus = m_parts->frame.menus;
    const QString entry = QStringLiteral("iniciomenu");
    const bool wanted = !menus.action(entry)->isChecked();
    saveQuickStart(wanted);
    menus.setChecked(entry, wanted);
}

void Form1::toggleNode() {
    controls::TreeView& tree = m_parts->surface.treeView1;
    const browse::Node node = tree.selected();
    if (node == browse::noNode) return;
    tree.setExpanded(node, !tree.isExpanded(node));
    browse::captionOpenNode(m_parts->surface, node);
}

void Form1::showProperties() {
    browse::Surface& surface = m_parts->surface;
    const browse::Node node = surface.treeView1.selected();
    if (node == browse::noNode) return;
    auto database = engine::OpenDatabase(m_parts->frame.catalogue.path());
    const auto properties =
        database ? propertiesOf(propertiesRequest(surface, node), *database, m_parts->frame.idioma)
                 : std::unexpected(database.error());
    if (!properties) return browse::showFailure(surface, properties.error());
    if (!m_properties) m_properties = new Form3(m_parts->frame.idioma, this);
    m_properties->showProperties(*properties);
}

void Form1::treePressed(Qt::MouseButton button, const QPoint& place) {
    const browse::Node node = m_parts->surface.treeView1.selected();
    const bool menuWanted = button == Qt::RightButton && node != browse::noNode;
    m_parts->state.menuOfFolder = menuWanted && !m_parts->surface.isUnit(node);
    m_parts->applyState();
    if (!menuWanted) return;
    browse::captionOpenNode(m_parts->surface, node);
    m_parts->frame.menus.popup()->popup(place);
}

void Form1::listPressed() {
    m_parts->state.listHasRows = m_parts->surface.lists.shown().count() > 0;
    m_parts->applyState();
}

void Form1::listReleased(Qt::MouseButton button, const QPoint& place) {
    if (button == Qt::RightButton && m_parts->listActivation.popupAllowed())
        m_parts->frame.menus.popup2()->popup(place);
}

void Form1::layOut() {
    m_parts->panes.medidas();
}

// Where the desktop's keys have it so, fields claim Ctrl+E as the way to their end. In this window it is the
// menu's, whichever field has the focus.
bool Form1::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const auto* field = qobject_cast<const QWidget*>(watched);
        if (key.matches(QKeySequence::MoveToEndOfLine) && key.key() != Qt::Key_End && field &&
            field->window() == this) {
            event->ignore();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void Form1::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    layOut();
}

void Form1::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) controls::followPalette();
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) m_parts->frame.menus.attachIcons();
}

void Form1::closeEvent(QCloseEvent* event) {
    m_parts->surface.estado.dejarCarga();
    m_parts->picture2->abandon();
    QMainWindow::closeEvent(event);
    salida();
}

}  // namespace shell

#include "moc_main_window.cpp"
