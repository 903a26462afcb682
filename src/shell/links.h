#pragma once

#include "core/language.h"

namespace shell {

// What leads outside: link files beside the program, and mail. Whatever cannot be opened is left in silence.
enum class Link { Website, Support };

void openLink(Link link, core::Language idioma);  // the language's own file, else the other's
void openFeedback(core::Language idioma);
void openAuthorMail();  // of the about box

}  // namespace shell
