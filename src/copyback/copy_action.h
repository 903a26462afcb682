#pragma once

#include "core/medium.h"
#include "frame/frame.h"
#include "lists/clicked_row.h"
#include "lists/item_list.h"

namespace copyback {

// The menu entries "Copiar archivos": asks for a folder and copies the selected files of the shown list to
// it. A cancelled chooser does not end it: the copies then go to the root folder. True when every selected
// item had its turn.
bool Copiararchivos(frame::Frame& frame, const lists::Lists& lists, const lists::ClickedRow& clic,
                    const core::DriveSource& drives = platform::Drives::current);

}  // namespace copyback
