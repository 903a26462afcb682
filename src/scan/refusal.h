#pragma once

#include <string_view>

#include "core/language.h"
#include "core/notice.h"

namespace scan {

// What may be typed as a unit's name and content, tested in lower case. Backspace and Enter pass besides.
inline constexpr std::string_view allowedInNames = "1234567890áéíóúqwertyuiopasdfghjklñzxcvbnm$%&-_@€ ";
inline constexpr std::string_view allowedInContent = allowedInNames;
// The directory comes from the folder chooser only.
inline constexpr std::string_view allowedInDirectory = "";

enum class Field { Name, Directory };

// Why a unit is not made, and what the panel does about it.
struct UnitRefusal {
    core::Bilingual text;
    std::string_view title;
    Field focus;
    bool emptiesName = false;
};

inline constexpr core::Bilingual writeName{"Introduzca un nombre para la unidad.",
                                           "Write a name for the unit."};
inline constexpr core::Bilingual selectDirectory{"Seleccione el directorio a catalogar.",
                                                 "Select the directory to catalog."};
inline constexpr core::Bilingual selectOtherName{"Seleccione otro nombre para la unidad.",
                                                 "Select another name for the unit."};
inline constexpr core::Bilingual writeContent{"Introduzca el contenido de la unidad.",
                                              "write the content of the unit."};

namespace refusal {
inline constexpr UnitRefusal scanWithoutName{writeName, core::boxTitle, Field::Name};
inline constexpr UnitRefusal scanWithoutDirectory{selectDirectory, core::boxTitle, Field::Directory};
inline constexpr UnitRefusal scanNameTaken{selectOtherName, "Nompre existente", Field::Name, true};

inline constexpr UnitRefusal manualWithoutContent{writeContent, core::boxTitle,
                                                  Field::Name};  // not the content's field
inline constexpr UnitRefusal manualWithoutName{writeName, core::boxTitle, Field::Name};
inline constexpr UnitRefusal manualNameTaken{selectOtherName, "Zarquelin", Field::Name, true};
}  // namespace refusal

}  // namespace scan
