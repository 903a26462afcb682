#include "shell/selection.h"

namespace shell {

stats::Selection selectionOf(const browse::Surface& surface) {
    stats::Selection selection;
    selection.treeIsEmpty = surface.treeView1.nodes().count() == 0;
    if (const browse::Node node = surface.treeView1.selected(); node != browse::noNode) {
        selection.node = surface.nodeText(node);
        selection.isUnit = surface.isUnit(node);
    }
    selection.place = surface.imageCombo1.text().toStdString();
    selection.rutaactual = surface.estado.rutaactual;
    if (const lists::ItemList& list = surface.lists.listView1; list.count() > 0)
        selection.firstListedUnit = list.subItem(0, lists::SubItem::Disco).toStdString();
    return selection;
}

browse::PropertiesRequest propertiesRequest(const browse::Surface& surface, browse::Node node) {
    browse::PropertiesRequest request;
    request.node = surface.nodeText(node);
    request.isUnit = surface.isUnit(node);
    request.discoactual = surface.estado.discoactual;
    request.rutaactual = surface.estado.rutaactual;
    request.nivelactual = surface.estado.nivelactual;
    request.picture = surface.imageCombo1.itemPicture(surface.imageCombo1.selectedItem());
    if (const lists::ItemList& list = surface.lists.listView1; list.count() > 0)
        request.firstListType = list.subItem(0, lists::SubItem::Type).toStdString();
    return request;
}

}  // namespace shell
