#include "browse/list_activation.h"

#include <charconv>
#include <optional>

#include "browse/showing.h"
#include "engine/database.h"
#include "frame/catalogue.h"
#include "frame/messages.h"
#include "frame/pointer.h"

namespace browse {
namespace {

constexpr int deepestLookedUp = 10;  // a folder deeper than that lists nothing

// The level of what lies in the folder that the statement finds, if it finds one that lists anything.
engine::Result<std::optional<int>> levelInside(engine::Database& database, const std::string& lookup) {
    const auto rows = TRY(database.OpenRecordset(lookup));
    const bool none = rows.Eof();
    if (rows.error()) return std::unexpected(*rows.error());
    if (none) return std::nullopt;
    const std::string_view nivel = rows.Field("nivel").text();
    int level = 0;
    std::from_chars(nivel.data(), nivel.data() + nivel.size(), level);
    return level >= 1 && level <= deepestLookedUp ? std::optional(level + 1) : std::nullopt;
}

}  // namespace

bool ListActivation::isFolderCaption(const std::string& type) const {
    return type == m_surface.frame.rotulos().rotulocarpeta;
}

void ListActivation::itemClicked(lists::ItemList& list, int position) {
    lists::ClickedRow& clic = m_surface.clic;
    clic.indicefila = position;
    clic.nodoactual = list.text(position).toStdString();
    clic.tipofilaelegida = list.subItem(position, lists::SubItem::Type).toStdString();
    const bool results = isResults(list);
    (results ? clic.filaelegida2 : clic.filaelegida1) = true;
    (results ? clic.discofila2 : clic.discofila1) =
        list.subItem(position, lists::SubItem::Disco).toStdString();
    (results ? clic.rutafila2 : clic.rutafila1) = list.subItem(position, lists::SubItem::Ruta).toStdString();
}

void ListActivation::abrirlistitem() {
    doubleClicked(m_surface.lists.shown());
}

void ListActivation::doubleClicked(lists::ItemList& list) {
    const lists::ClickedRow& clic = m_surface.clic;
    const int position = list.selectedPosition();
    if (list.count() == 0 || position < 0) return;
    if (!(isResults(list) ? clic.filaelegida2 : clic.filaelegida1) || clic.indicefila < 0) return;

    const frame::Hourglass hourglass;
    const Row row{list.text(position).toStdString(),
                  list.subItem(position, lists::SubItem::Disco).toStdString(),
                  list.subItem(position, lists::SubItem::Ruta).toStdString()};
    if (!isFolderCaption(list.subItem(position, lists::SubItem::Type).toStdString()))
        openRow(row);
    else if (isResults(list))
        stepFromResults(row);
    else
        stepFromBrowsing(row);
}

void ListActivation::openRow(const Row& row) {
    openFile({row.ruta, row.name}, row.disco, m_surface.frame.idioma, m_drives,
             frame::tellThrough(m_surface.frame.messages));
}

void ListActivation::stepFromBrowsing(const Row& row) {
    lists::ItemList& list = m_surface.lists.listView1;
    list.sort({.on = true, .key = lists::SubItem::Notes, .descending = false});
    selectChildNode(list.store().numberOf(static_cast<std::size_t>(list.selectedPosition())));
    ++m_surface.estado.nivelactual;
    showPathItem(m_surface, m_surface.imageCombo1.text().toStdString() + '\\' + m_surface.clic.nodoactual);

    list.clear();
    if (auto database = engine::OpenDatabase(m_surface.frame.catalogue.path()))
        listSteppedInto(*database, row);
    else
        showFailure(m_surface, database.error());
    showPicture(m_surface);
    showKind(m_surface);
}

void ListActivation::listSteppedInto(engine::Database& database, const Row& row) {
    const auto level = levelInside(database, steppedFolderLookup(row.name, row.disco, row.ruta));
    if (!level) return showFailure(m_surface, level.error());
    if (*level && !fillList(m_surface, database, steppedFolderListing(**level, row.disco, row.ruta))) return;
    cantidadytamaños(m_surface, database);
}

// The tree's children stand for the list's rows as they were read, whatever the list is sorted by.
void ListActivation::selectChildNode(std::size_t number) {
    controls::TreeView& tree = m_surface.treeView1;
    const Node parent = tree.selected();
    if (parent == noNode) return;
    tree.setExpanded(parent, true);
    Node child = tree.nodes().firstChild(parent);
    for (std::size_t row = 1; row <= number && child != noNode; ++row) {
        const Node next = tree.nodes().nextSibling(child);
        if (next == noNode) break;
        child = next;
    }
    if (child != noNode) tree.setSelected(child);
}

// Stays in the search list: tree, path combo and sorting are left as they are.
void ListActivation::stepFromResults(const Row& row) {
    lists::ItemList& results = m_surface.lists.listView2;
    results.clear();
    auto database = engine::OpenDatabase(m_surface.frame.catalogue.path());
    if (!database) return showFailure(m_surface, database.error());
    const auto level = levelInside(*database, steppedResultLookup(row.name, row.disco, row.ruta));
    if (!level) return showFailure(m_surface, level.error());
    if (!*level) return;
    results.beginFill();
    const auto whole =
        list(*database, steppedResultListing(**level, row.disco, row.ruta, row.name), m_surface.frame.idioma,
             m_surface.memoria, [&](const lists::ListItem& item) { results.add(item); });
    results.endFill();
    if (whole) return;
    results.clear();
    showFailure(m_surface, whole.error());
}

bool ListActivation::popupAllowed() const {
    const lists::ClickedRow& clic = m_surface.clic;
    // A press beside the rows leaves the clicked row behind, but none selected: its note is not meant.
    if (m_surface.lists.shown().selectedPosition() < 0) return false;
    return clic.indicefila >= 0 && !isFolderCaption(clic.tipofilaelegida);
}

}  // namespace browse
