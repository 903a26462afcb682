#include "browse/path_combo.h"

#include "browse/tail.h"
#include "browse/unit_load.h"
#include "shell/frame/catalogue.h"
#include "shell/frame/pointer.h"
#include "shell/frame/running.h"
#include "shell/frame/status_band.h"

namespace browse {

void PathCombo::selectUnitNode(int number) {
    controls::TreeView& tree = m_surface.treeView1;
    const controls::Node last = tree.lastRoot();
    // With a path item present the combo has one item more than the tree has units.
    if (last && tree.indexOf(last) == m_surface.imageCombo1.count()) tree.setSelected(tree.nodeAt(number));
}

controls::Node PathCombo::unitNode(const QString& disco) const {
    const controls::TreeView& tree = m_surface.treeView1;
    for (controls::Node root = tree.firstRoot(); root; root = tree.nextSibling(root))
        if (tree.text(root) == disco) return root;
    return {};
}

void PathCombo::choose(int number) {
    const shell::Hourglass hourglass;
    const QString chosen = m_surface.imageCombo1.itemText(number);
    m_surface.clic.nodoactual = chosen.toStdString();
    selectUnitNode(number);

    const controls::Node selected = m_surface.treeView1.selected();
    const bool hasChildren = selected && m_surface.treeView1.childCount(selected) > 0;
    m_surface.estado.hijosnodo = hasChildren;
    if (auto database = jet::OpenDatabase(m_surface.frame.catalogue.path())) {
        fillList(m_surface, *database, unitListing(m_surface.clic.nodoactual));
        const controls::Node unit = unitNode(chosen);
        if (!hasChildren && unit && m_surface.treeView1.childCount(unit) == 0) loadUnit(*database, unit);
        if (unit && selected == unit) m_surface.treeView1.setExpanded(unit, true);
    }
    showPicture(m_surface);
    showKind(m_surface);
}

void PathCombo::loadUnit(jet::Database& database, controls::Node node) {
    const shell::Running running(m_surface.frame);
    m_surface.estado.cargaparada = false;
    UnitLoad load(m_surface, node, m_surface.clic.nodoactual, UnitLoad::Names::Ignore);
    (void)load.from(database, FirstLevel::FoldersOnly);
    m_surface.estado.cargaparada = true;
    m_surface.frame.status.hideProgress();
}

void PathCombo::textTyped() {
    dropPathItem(m_surface);
    m_surface.imageCombo1.update();
}

}  // namespace browse
