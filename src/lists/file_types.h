#pragma once

#include <string>
#include <string_view>

#include "core/language.h"

namespace lists {

// Picture and type caption of a file, from its name's ending alone.
struct FileKind {
    int picture;
    std::string_view caption;  // points into the Rotulos
};

// Browsing and search results know slightly different endings: when browsing, ".mpeg" is a video and ".vox"
// is a compressed file; among results the one is a plain file and the other audio.
enum class PatternSet { Browsing, Results };

[[nodiscard]] FileKind fileKind(std::string_view archivo, PatternSet set, const core::Rotulos& rotulos);

// Caption of a row that is not a file. In Spanish `tipo` as it stands; in English a `tipo` that is none of
// the known words keeps `previous`, the caption of the row before.
[[nodiscard]] std::string tipoCaption(std::string_view tipo, core::Language language,
                                      std::string_view previous);

inline constexpr int folderPicture = 3;  // large
inline constexpr int folderSmallPicture = 2;

}  // namespace lists
