#pragma once

#include "browse/browse_state.h"
#include "browse/name_lists.h"
#include "controls/image_combo.h"
#include "controls/tree_view.h"
#include "core/units.h"
#include "frame/frame.h"
#include "lists/clicked_row.h"
#include "lists/item_list.h"
#include "lists/row_items.h"

namespace browse {

using controls::Node;
using controls::noNode;

// What the browsing procedures work on: the controls, which Form1 owns, and the state they share. Lives as
// long as the main window.
struct Surface {
    frame::Frame& frame;
    controls::TreeView& treeView1;
    controls::ImageCombo& imageCombo1;  // the path combo: the units, then at most one path
    lists::Lists lists;
    lists::RowMemory& memoria;  // of the rows shown in either list

    NameLists nombres;
    BrowseState estado;
    lists::ClickedRow clic;
    core::Counters contadores;

    [[nodiscard]] std::string nodeText(Node node) const { return treeView1.nodes().text(node).toStdString(); }
    [[nodiscard]] bool isUnit(Node node) const { return nombres.isUnit(nodeText(node)); }
};

}  // namespace browse
