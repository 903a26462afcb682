#pragma once

#include "core/language.h"

namespace shell {

// Lets the toolkit speak the run's language where its own windows show: the dialogs of files and of the
// printer. Its language is English unless told otherwise.
void translateToolkit(core::Language idioma);

}  // namespace shell
