#include "search/result_row.h"

namespace search {
namespace {

lists::FileKind kindOf(FileType type, const core::Rotulos& rotulos) {
    constexpr int firstPicture = 7;  // of audio; the others follow in their order
    return {firstPicture + static_cast<int>(type) - static_cast<int>(FileType::Audio),
            captionOf(type, rotulos)};
}

}  // namespace

lists::ListItem resultItem(const engine::Recordset& row, const Pass& pass, core::Language language,
                           lists::RowMemory& memory) {
    lists::RowStyle style{.patterns = lists::PatternSet::Results, .note = pass.note, .dateKeyIsSerial = true};
    if (pass.shownType != FileType::All) style.fileKind = kindOf(pass.shownType, core::rotulos(language));
    const lists::RowItems items(language, memory, style);
    return pass.kind == PassKind::Folder ? items.folderItem(row) : items.fileItem(row);
}

}  // namespace search
