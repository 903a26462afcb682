#include "browse/going_up.h"

#include "browse/showing.h"
#include "frame/catalogue.h"
#include "frame/pointer.h"
#include "frame/status_band.h"

namespace browse {

void GoingUp::arriba() {
    if (!m_surface.estado.nodopulsado) return;
    controls::TreeView& tree = m_surface.treeView1;
    const Node node = tree.selected();
    if (node == noNode) return;
    if (!m_surface.isUnit(node) && tree.nodes().parentOf(node) != noNode)
        tree.setSelected(tree.nodes().parentOf(node));
    volveratras();
}

void GoingUp::volveratras() {
    const Node node = m_surface.treeView1.selected();
    if (node == noNode) return;
    const frame::Hourglass hourglass;
    m_surface.lists.listView1.clear();
    auto database = engine::OpenDatabase(m_surface.frame.catalogue.path());
    if (!database)
        showFailure(m_surface, database.error());
    else if (m_surface.isUnit(node))
        listUnit(*database, node);
    else
        listFolder(*database, node);
    showPicture(m_surface);
    showKind(m_surface);
}

void GoingUp::listUnit(engine::Database& database, Node node) {
    controls::ImageCombo& combo = m_surface.imageCombo1;
    const NodeNames names = namesOf(m_surface.treeView1.nodes(), node);
    for (int number = 1; number <= combo.count(); ++number) {
        combo.setSelected(number);
        if (combo.itemText(number).toStdString() == names.fullPath) break;
    }
    if (fillList(m_surface, database, unitListing(names.text), true))
        showUnitTotals(m_surface, names.text, raisedUnitTotals(database, names.text));
}

void GoingUp::listFolder(engine::Database& database, Node node) {
    const NodeNames names = namesOf(m_surface.treeView1.nodes(), node);
    showPathItem(m_surface, names.fullPath);
    const int level = m_surface.nombres.levelOf(names.unit(), names.text, names.ancestors);
    const bool whole =
        level == 0 || fillList(m_surface, database,
                               raisedFolderListing(level, names.unit(), names.chain(level), names.text));
    // Not set from the level found: it stays one below wherever the last listing left it.
    --m_surface.estado.nivelactual;
    if (whole) cantidadytamaños(m_surface, database);
}

}  // namespace browse
