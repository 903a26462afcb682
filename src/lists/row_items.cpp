#include "lists/row_items.h"

#include "core/text.h"
#include "lists/file_types.h"

namespace lists {
namespace {

// What folder and file rows have in common.
ListItem commonItem(const core::CatalogRow& row) {
    ListItem item;
    item.notes = row.comentario.value_or("");
    item.fecha = row.fecha;
    item.disco = row.disco;
    item.ruta = row.ruta;
    return item;
}

}  // namespace

ListItem RowItems::folderItem(const core::CatalogRow& row) {
    m_tipocarpeta = tipoCaption(row.tipo, m_language, m_tipocarpeta);
    ListItem item = commonItem(row);
    item.text = row.carpeta;
    item.picture = folderPicture;
    item.smallPicture = folderSmallPicture;
    item.type = m_tipocarpeta;
    item.nameKey = "a" + row.carpeta;
    return item;
}

ListItem RowItems::fileItem(const core::CatalogRow& row, bool lowerCaseKey) const {
    const std::string name = row.archivo.value_or("");
    const FileKind kind = fileKind(name, PatternSet::Browsing, core::rotulos(m_language));
    ListItem item = commonItem(row);
    item.text = name;
    item.picture = item.smallPicture = kind.picture;
    item.type = kind.caption;
    item.largo = row.largo.value_or(0);
    item.nameKey = "b" + (lowerCaseKey ? core::lowerCase(name) : name);
    return item;
}

}  // namespace lists
