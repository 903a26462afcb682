#include "browse/node_click.h"

#include <utility>

#include "browse/node_listing.h"
#include "browse/showing.h"
#include "browse/unit_load.h"
#include "frame/catalogue.h"
#include "frame/long_work.h"
#include "frame/pointer.h"
#include "frame/status_band.h"

namespace browse {

void NodeClick::begin(Node node) {
    BrowseState& estado = m_surface.estado;
    estado.nivelactual = 0;
    estado.porCargar = noNode;
    ++estado.listados;
    estado.nodopulsado = true;
    captionOpenNode(m_surface, node);
    m_surface.clic.nodoactual = m_surface.nodeText(node);
    estado.hijosnodo = m_surface.treeView1.nodes().childCount(node) > 0;
    m_surface.lists.listView1.clear();
}

void NodeClick::end() {
    showPicture(m_surface);
    showKind(m_surface);
}

void NodeClick::click(Node node) {
    const frame::Hourglass hourglass(frame::Hourglass::WithArrow);
    const frame::Running running(m_surface.frame);
    begin(node);
    auto database = engine::OpenDatabase(m_surface.frame.catalogue.path());
    if (!database) {
        showFailure(m_surface, database.error());
    } else if (m_surface.isUnit(node)) {
        listUnit(*database, node);
    } else {
        listFolder(*database, node);
    }
    end();
}

void NodeClick::pointComboAtUnit(Node node) {
    // Units were added first, so a unit's index in the tree is that of its item.
    // One that was added behind folders is found by its name.
    controls::ImageCombo& combo = m_surface.imageCombo1;
    const QString disco = m_surface.treeView1.nodes().text(node);
    int number = m_surface.treeView1.nodes().indexOf(node);
    if (combo.itemText(number) != disco)
        number = combo.findText(disco, Qt::MatchExactly | Qt::MatchCaseSensitive) + 1;
    if (number > 0) combo.setSelected(number);
}

// True when the unit is still to be listed; a load that failed has said so. A load that another one waits for
// is not cut short: units that the arrow keys pass meanwhile are only listed, and the last of them is loaded
// after it.
bool NodeClick::loadFirst(Node node) {
    BrowseState& estado = m_surface.estado;
    if (estado.cargando != noNode) {
        estado.porCargar = node;
        return true;
    }
    const int listing = estado.listados;
    const auto end = load(node);
    while (const Node next = std::exchange(estado.porCargar, noNode))
        if (next != node && m_surface.treeView1.nodes().contains(next)) (void)load(next);
    return end == LoadEnd::Complete && estado.listados == listing;
}

std::optional<LoadEnd> NodeClick::load(Node node) {
    UnitLoad load(m_surface, node, m_surface.nodeText(node), UnitLoad::Names::Learn);
    return load.fromWorkingCopy(m_surface.frame.catalogue.path());
}

void NodeClick::listUnit(engine::Database& database, Node node) {
    BrowseState& estado = m_surface.estado;
    const std::string disco = m_surface.clic.nodoactual;
    estado.discoactual = disco;
    estado.largodisco = disco.size();
    estado.nivelactual = 1;
    m_surface.frame.status.setText(m_surface.frame.rotulos().rotuloaccediendo);
    pointComboAtUnit(node);

    const bool loaded = estado.hijosnodo;
    const bool expanded = m_surface.treeView1.isExpanded(node);
    if (!loaded && !loadFirst(node)) return;
    if (fillList(m_surface, database, unitListing(disco, loaded && !expanded), loaded && expanded))
        showUnitTotals(m_surface, disco, clickedUnitTotals(database, disco));
}

void NodeClick::listFolder(engine::Database& database, Node node) {
    BrowseState& estado = m_surface.estado;
    const NodeNames names = namesOf(m_surface.treeView1.nodes(), node);
    estado.discoactual = names.unit();
    estado.largodisco = estado.discoactual.size();
    showPathItem(m_surface, names.fullPath);

    if (const auto clicked = clickedListing(m_surface.nombres, names)) {
        estado.nivelactual = clicked->nivel;
        if (!fillList(m_surface, database, clicked->listing)) return;
    }
    cantidadytamaños(m_surface, database);
}

}  // namespace browse
