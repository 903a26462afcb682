#include "search/result_row.h"

#include "lists/file_types.h"

namespace search {
namespace {

int pictureOf(FileType type) {
    constexpr int firstPicture = 7;  // of audio; the others follow in their order
    return firstPicture + static_cast<int>(type) - static_cast<int>(FileType::Audio);
}

void presentFolder(lists::ListItem& item, const engine::Recordset& row, core::Language language,
                   RowMemory& memory) {
    memory.tipocarpeta = lists::tipoCaption(row.Field("tipo").text(), language, memory.tipocarpeta);
    item.text = row.Field("carpeta").text();
    item.picture = lists::folderPicture;
    item.smallPicture = lists::folderSmallPicture;
    item.type = memory.tipocarpeta;
    item.nameKey = "a" + item.text;
}

void presentFile(lists::ListItem& item, const engine::Recordset& row, FileType shownType,
                 const core::Rotulos& rotulos) {
    item.text = row.Field("archivo").text();
    if (shownType == FileType::All) {
        const lists::FileKind kind = lists::fileKind(item.text, lists::PatternSet::Results, rotulos);
        item.picture = kind.picture;
        item.type = kind.caption;
    } else {
        item.picture = pictureOf(shownType);
        item.type = captionOf(shownType, rotulos);
    }
    item.smallPicture = item.picture;
    item.largo = row.Field("largo").integer();
    item.nameKey = "b" + item.text;
}

}  // namespace

lists::ListItem resultItem(const engine::Recordset& row, const Pass& pass, core::Language language,
                           RowMemory& memory) {
    lists::ListItem item;
    if (pass.kind == PassKind::Folder)
        presentFolder(item, row, language, memory);
    else
        presentFile(item, row, pass.shownType, core::rotulos(language));

    if (pass.note == NoteReading::Read) memory.notafila = row.Field("comentario").text();
    if (pass.note == NoteReading::Ignore)
        item.nameKey.clear();
    else
        item.notes = memory.notafila;

    item.fecha = row.Field("fecha").number();
    item.dateKeyIsSerial = true;
    item.disco = row.Field("disco").text();
    item.ruta = row.Field("ruta").text();
    return item;
}

}  // namespace search
