#include "core/unit_kinds.h"

namespace core {

int unitPicture(std::string_view tipo) {
    if (tipo == folderTipo || tipo == fileTipo) return scannedUnitPicture;
    for (const UnitKind& kind : unitKinds)
        if (kind.tipo == tipo) return kind.picture;
    return 0;
}

}  // namespace core
