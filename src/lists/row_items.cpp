#include "lists/row_items.h"

#include "core/text.h"

namespace lists {

// What folder and file rows have in common.
void RowItems::addCommon(ListItem& item, const engine::Recordset& row) const {
    if (m_style.note == NoteReading::Read) m_memory.notafila = row.Field(engine::Column::comentario).text();
    if (m_style.note == NoteReading::Ignore)
        item.nameKey.clear();
    else
        item.notes = m_memory.notafila;
    item.fecha = row.Field(engine::Column::fecha).number();
    item.dateKeyIsSerial = m_style.dateKeyIsSerial;
    item.disco = row.Field(engine::Column::disco).text();
    item.ruta = row.Field(engine::Column::ruta).text();
}

ListItem RowItems::folderItem(const engine::Recordset& row) const {
    m_memory.tipocarpeta =
        tipoCaption(row.Field(engine::Column::tipo).text(), m_language, m_memory.tipocarpeta);
    ListItem item;
    item.text = row.Field(engine::Column::carpeta).text();
    item.picture = folderPicture;
    item.smallPicture = folderSmallPicture;
    item.type = m_memory.tipocarpeta;
    item.nameKey = "a" + item.text;
    addCommon(item, row);
    return item;
}

ListItem RowItems::fileItem(const engine::Recordset& row) const {
    ListItem item;
    item.text = row.Field(engine::Column::archivo).text();
    const FileKind kind = m_style.fileKind ? *m_style.fileKind
                                           : fileKind(item.text, m_style.patterns, core::rotulos(m_language));
    item.picture = item.smallPicture = kind.picture;
    item.type = kind.caption;
    item.largo = row.Field(engine::Column::largo).integer();
    item.nameKey = "b" + (m_style.lowerCaseKeys ? core::lowerCase(item.text) : item.text);
    addCommon(item, row);
    return item;
}

}  // namespace lists
