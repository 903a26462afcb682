#pragma once

#include "core/language.h"

namespace search {

// The procedures ask for the same things in words of their own; the English ones differ between them.
namespace messages {

inline constexpr core::Bilingual itemForName{"Introduzca el item a buscar.", "Write the item to search."};
inline constexpr core::Bilingual itemForNote{"Introduzca el item a buscar.", "Introduce the item to search."};
inline constexpr core::Bilingual itemForSize{"Introduzca el item a buscar.", "Introduce a item to search."};

inline constexpr core::Bilingual noteOnButton{"Introduzca la Nota a buscar.", "Introduce a note to search."};
inline constexpr core::Bilingual noteOnEnter{"Introduzca la Nota a buscar.", "Write the note to search."};
inline constexpr core::Bilingual noteForSize{"Introduzca la Nota a buscar.", "Introduzca la Nota a buscar."};

}  // namespace messages
}  // namespace search
