#include "shell/window_hosts.h"

#include "browse/tail.h"
#include "shell/main_window.h"
#include "shell/main_window_parts.h"

namespace shell {

void OpeningWindow::resetPanels() {
    m_parts.picture2->fillKinds();
    m_parts.picture12->closeAtOnce();
    m_parts.views.showReport();
    m_parts.views.resetCycle();
}

void OpeningWindow::layOutPanes() {
    m_parts.panes.medidas();
}

void OpeningWindow::selectFirstType() {
    m_parts.picture1->fillTypes();
}

void OpeningWindow::setCatalogueOpen(bool open) {
    m_parts.state.catalogueOpen = open;
    if (open) m_parts.state.recentMissing = false;  // from now on there is one
    m_parts.applyState();
}

void OpeningWindow::showBrowseSurface(bool shown) {
    const WindowControls& controls = m_parts.controls;
    for (QWidget* control :
         std::initializer_list<QWidget*>{controls.treeView1, controls.listView1, controls.imgSplitter})
        control->setVisible(shown);
}

void OpeningWindow::hidePanels() {
    m_parts.picture1->hide();
    m_parts.picture2->hide();
    m_parts.picture12->closeAtOnce();
    m_parts.controls.listView2->hide();
}

void OpeningWindow::showSearchPanel() {
    m_parts.picture2->hide();
    m_parts.panes.medidas();
    m_parts.picture1->show();
    m_parts.picture1->raise();
}

void OpeningWindow::endScan() {
    m_parts.picture2->abandon();
}

void OpeningWindow::setCaption(const QString& caption) {
    m_parts.window.setWindowTitle(caption);
}

void ImportWindow::placeOverTree(QWidget& panel) {
    panel.setGeometry(m_parts.controls.treeView1->geometry());
    panel.raise();
}

void ImportWindow::hidePicture1() {
    m_parts.picture1->hide();
}

void ImportWindow::hideListView2() {
    m_parts.controls.listView2->hide();
}

void ImportWindow::clearListView1() {
    m_parts.surface.lists.listView1.clear();
}

void ImportWindow::clearListView2() {
    m_parts.surface.lists.listView2.clear();
}

void ImportWindow::clearTreeView1() {
    m_parts.surface.treeView1.clear();
}

void ImportWindow::clearImageCombos() {
    m_parts.surface.imageCombo1.clear();
    m_parts.surface.imageCombo3.clear();
    m_parts.surface.estado.indicecombo = 0;
}

void ImportWindow::addUnit(const QString& text, int picture, const QString& key) {
    browse::Surface& surface = m_parts.surface;
    const std::string disco = text.toStdString();
    browse::dropPathItem(surface);
    // Another unit was given this name while it was scanned.
    if (surface.imageCombo1.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0) return;
    if (!surface.nombres.isUnit(disco)) surface.nombres.addUnit(disco);  // to be browsed at once
    m_parts.opening.addUnit(disco, picture, key);
    surface.estado.indicecombo = surface.imageCombo1.count();
    surface.imageCombo1.setSelected(surface.estado.indicecombo);
}

int ImportWindow::imageCombo1Count() const {
    return m_parts.surface.imageCombo1.count();
}

void ImportWindow::actualizar() {
    m_parts.opening.actualizar();
}

void ImportWindow::explorar1() {
    m_parts.switching.explorar1();
}

void ImportWindow::reciente1() {
    m_parts.catalogueActions.reciente1();
}

bool StatisticsWindow::treeIsEmpty() const {
    return m_parts.surface.treeView1.nodes().count() == 0;
}

std::optional<std::string> StatisticsWindow::selectedNode() const {
    const browse::Node node = m_parts.surface.treeView1.selected();
    if (node == browse::noNode) return std::nullopt;
    return m_parts.surface.nodeText(node);
}

bool StatisticsWindow::isUnit(const std::string& nodeText) const {
    return m_parts.surface.nombres.isUnit(nodeText);
}

std::string StatisticsWindow::place() const {
    return m_parts.surface.imageCombo1.text().toStdString();
}

std::string StatisticsWindow::rutaactual() const {
    return m_parts.surface.estado.rutaactual;
}

std::optional<std::string> StatisticsWindow::firstListedUnit() const {
    const lists::ItemList& list = m_parts.surface.lists.listView1;
    if (list.count() == 0) return std::nullopt;
    return list.subItem(0, 8).toStdString();
}

core::Counters& StatisticsWindow::counters() {
    return m_parts.surface.contadores;
}

}  // namespace shell
