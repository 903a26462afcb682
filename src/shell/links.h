#pragma once

#include "core/language.h"

namespace shell {

// The menu entries that lead outside: link files beside the program, and mail. Whatever cannot be opened is
// left in silence.
void openWebsite(core::Language idioma);
void openSupport(core::Language idioma);
void openFeedback(core::Language idioma);
void openAuthorMail();  // of the about box

}  // namespace shell
