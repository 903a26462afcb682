#include "browse/showing.h"

#include <QAction>

#include "core/failure.h"
#include "core/kilobytes.h"
#include "frame/catalogue.h"
#include "frame/menus.h"
#include "frame/status_band.h"
#include "platform/qtext.h"

namespace browse {

void dropPathItem(Surface& surface) {
    controls::ImageCombo& combo = surface.imageCombo1;
    if (combo.count() != surface.estado.indicecombo) combo.removeItem(surface.estado.indicecombo + 1);
}

NodeNames namesOf(const controls::TreeModel& nodes, controls::Node node) {
    NodeNames names{nodes.text(node).toStdString(), {}, nodes.fullPath(node).toStdString()};
    for (auto above = nodes.parentOf(node); above != controls::noNode; above = nodes.parentOf(above))
        names.ancestors.push_back(nodes.text(above).toStdString());
    return names;
}

void showPathItem(Surface& surface, const std::string& fullPath) {
    dropPathItem(surface);
    const int number = surface.estado.indicecombo + 1;
    surface.imageCombo1.addItem(number, platform::qtext(fullPath), 2);
    surface.imageCombo1.setSelected(number);
}

void showFailure(Surface& surface, const engine::Error& error) {
    surface.frame.status.setSize({});
    const bool silent = core::isRefusedStatement(error);
    const frame::Frame& frame = surface.frame;
    surface.frame.status.setText(silent ? std::string()
                                        : core::failureLine(frame.catalogue.path(), error, frame.idioma));
}

bool fillList(Surface& surface, engine::Database& database, const ListingStatements& listing,
              bool lowerCaseKeys) {
    lists::ItemList& shown = surface.lists.listView1;
    ++surface.estado.listados;
    shown.clear();
    shown.beginFill();
    const auto whole = list(
        database, listing, surface.frame.idioma, surface.memoria,
        [&](const lists::ListItem& item) { shown.add(item); }, lowerCaseKeys);
    shown.endFill();
    if (whole) return true;
    shown.clear();
    showFailure(surface, whole.error());
    return false;
}

void cantidadytamaños(Surface& surface, engine::Database& database) {
    BrowseState& estado = surface.estado;
    const std::string path = surface.imageCombo1.text().toStdString();
    estado.rutaactual = path.substr(std::min(estado.largodisco, path.size()));
    const auto totals = folderTotals(database, estado.discoactual, estado.rutaactual, estado.nivelactual);
    showPicture(surface);
    if (!totals) return showFailure(surface, totals.error());
    surface.frame.status.setSize(core::sizeCaption(totals->kilobytes, surface.frame.idioma));
    surface.frame.status.setText(folderStatus(*totals, surface.frame.rotulos()));
}

void showUnitTotals(Surface& surface, const std::string& disco, const engine::Result<Totals>& totals) {
    if (!totals) return showFailure(surface, totals.error());
    surface.frame.status.setText(unitStatus(disco, *totals, surface.frame.rotulos()));
    surface.frame.status.setSize(core::sizeCaption(totals->kilobytes, surface.frame.idioma));
}

void captionOpenNode(Surface& surface, Node node) {
    const core::Rotulos& rotulos = surface.frame.rotulos();
    surface.frame.menus.action(QStringLiteral("abrirnodo"))
        ->setText(QString::fromStdString(surface.treeView1.isExpanded(node) ? rotulos.rotulocontraer
                                                                            : rotulos.rotuloexpandir));
}

void showPicture(Surface& surface) {
    surface.frame.status.setPicture(surface.imageCombo1.itemPicture(surface.imageCombo1.selectedItem()));
}

void showKind(Surface& surface) {
    const lists::ItemList& shown = surface.lists.listView1;
    if (shown.count() == 0) return;
    const QString type = shown.subItem(0, lists::SubItem::Type);
    const bool isUnitRow = type.contains(QStringLiteral("Unidad")) || type.contains(QStringLiteral("unit"));
    surface.frame.status.setKind(isUnitRow ? type.toStdString()
                                           : surface.frame.rotulos().rotulounidadcarpetas);
}

}  // namespace browse
