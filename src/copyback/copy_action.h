#pragma once

#include "browse/surface.h"
#include "core/medium.h"

namespace copyback {

// The menu entries "Copiar archivos": asks for a folder and copies the selected files of the shown list to
// it. A cancelled chooser does not end it: the copies then go to the root folder.
void Copiararchivos(browse::Surface& surface, const core::DriveSource& drives = platform::Drives::current);

}  // namespace copyback
