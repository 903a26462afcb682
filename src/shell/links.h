#pragma once

#include <string>

#include "core/language.h"
#include "platform/files.h"

namespace shell {

// What leads outside: link files beside the program, and mail. Whatever cannot be opened is left in silence.
enum class Link { Website, Support };

// The language's own file in the folder, else the other's.
void openLink(Link link, core::Language idioma, const std::string& folder = platform::programFolder());
void openFeedback(core::Language idioma);
void openAuthorMail();  // of the about box

}  // namespace shell
