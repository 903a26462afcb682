#pragma once

#include "core/language.h"

namespace shell {

class Messages;

// The settings that the user makes, kept in the per-user store.

// Whether a language was ever chosen, and the run's language.
[[nodiscard]] bool isLanguageChosen();
[[nodiscard]] core::Language chosenLanguage();
void saveLanguage(core::Language language);

// The menu entries `español` and `English`: saved for the next start, and said in the language still running.
void changeLanguage(core::Language language, core::Language running, Messages& messages);

// Whether the quick start is shown.
[[nodiscard]] bool isQuickStartOn();
void saveQuickStart(bool on);

}  // namespace shell
