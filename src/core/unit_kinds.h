#pragma once

#include <array>
#include <string_view>

#include "core/language.h"

namespace core {

// The words of the column `tipo`. Stored in Spanish whatever the interface language.
inline constexpr std::string_view folderTipo = "Carpeta de archivos";
inline constexpr std::string_view fileTipo = "Archivo";

// The five kinds of a hand-made unit, in the order in which they are offered, with their pictures.
struct UnitKind {
    std::string_view tipo;
    Bilingual caption;
    int picture;
};
inline constexpr std::array<UnitKind, 5> unitKinds{{
    {"Unidad de archivos varios", {"Unidad de archivos varios", "Mixed files unit"}, 1},
    {"Unidad de audio", {"Unidad de audio", "Audio unit"}, 7},
    {"Unidad de video", {"Unidad de video", "Video unit"}, 9},
    {"Unidad de programas", {"Unidad de programas", "Aplications unit"}, 10},
    {"Unidad de juegos", {"Unidad de juegos", "Games unit"}, 17},
}};
inline constexpr int scannedUnitPicture = 16;

// The picture of a unit whose first row has this `tipo` (compared exactly); 0 when it is none of the seven
// words.
[[nodiscard]] int unitPicture(std::string_view tipo);

}  // namespace core
