#pragma once

#include "core/language.h"

namespace frame {
struct Frame;
}

namespace shell {

// What a user has chosen for all further starts.

// The setting "idioma". A language once chosen holds from the next start on.
[[nodiscard]] bool isLanguageChosen();
[[nodiscard]] core::Language chosenLanguage();
void saveLanguage(core::Language language);

// The menu entries `español` and `English`: saves, and says so in the language still running.
void chooseLanguage(core::Language language, frame::Frame& frame);

// The setting "iniciorapido": whether the quick start is shown. Off until the first choice of a language.
[[nodiscard]] bool isQuickStartOn();
void saveQuickStart(bool on);

}  // namespace shell
