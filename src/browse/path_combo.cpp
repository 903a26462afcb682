#include "browse/path_combo.h"

#include "browse/showing.h"
#include "browse/unit_load.h"
#include "frame/catalogue.h"
#include "frame/long_work.h"
#include "frame/pointer.h"

namespace browse {

void PathCombo::selectUnitNode(int number) {
    const controls::TreeModel& nodes = m_surface.treeView1.nodes();
    const Node last = nodes.lastChild(noNode);
    // With a path item present the combo has one item more than the tree has units.
    if (last != noNode && nodes.indexOf(last) == m_surface.imageCombo1.count())
        m_surface.treeView1.setSelected(nodes.nodeAt(number));
}

Node PathCombo::unitNode(const QString& disco) const {
    const controls::TreeModel& nodes = m_surface.treeView1.nodes();
    for (Node root = nodes.firstChild(noNode); root != noNode; root = nodes.nextSibling(root))
        if (nodes.text(root) == disco) return root;
    return noNode;
}

void PathCombo::choose(int number) {
    const frame::Hourglass hourglass;
    const QString chosen = m_surface.imageCombo1.itemText(number);
    m_surface.clic.nodoactual = chosen.toStdString();
    selectUnitNode(number);

    const Node selected = m_surface.treeView1.selected();
    const bool hasChildren = selected != noNode && m_surface.treeView1.nodes().childCount(selected) > 0;
    m_surface.estado.hijosnodo = hasChildren;
    auto database = engine::OpenDatabase(m_surface.frame.catalogue.path());
    if (!database) {
        showFailure(m_surface, database.error());
    } else if (fillList(m_surface, *database, unitListing(m_surface.clic.nodoactual))) {
        const Node unit = unitNode(chosen);
        if (!hasChildren && unit != noNode && m_surface.treeView1.nodes().childCount(unit) == 0)
            loadUnit(*database, unit);
        if (unit != noNode && selected == unit) m_surface.treeView1.setExpanded(unit, true);
    }
    showPicture(m_surface);
    showKind(m_surface);
}

void PathCombo::loadUnit(engine::Database& database, Node node) {
    if (m_surface.estado.cargando != noNode) return;  // the next click loads it
    const frame::Running running(m_surface.frame);
    UnitLoad load(m_surface, node, m_surface.clic.nodoactual, UnitLoad::Names::Ignore);
    (void)load.fromCatalogue(database);
}

void PathCombo::textTyped() {
    const QString typed = m_surface.imageCombo1.text();
    dropPathItem(m_surface);
    m_surface.imageCombo1.setText(typed);
    m_surface.imageCombo1.update();
}

}  // namespace browse
