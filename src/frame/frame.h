#pragma once

#include <functional>

#include "core/language.h"
#include "frame/dialogs.h"
#include "frame/messages.h"

namespace frame {

class Catalogue;
class MenuBar;
class StatusBand;
class Toolbar;

// What every room borrows from the main window. Form1 owns all of it and outlives the rooms.
struct Frame {
    core::Language idioma;
    Catalogue& catalogue;                               // the current catalogue's path and "lastfile"
    Messages& messages;                                 // message boxes
    Dialogs& dialogs;                                   // file, folder and print dialogs
    MenuBar& menus;                                     // menu entries by name
    Toolbar& toolbar;                                   // Toolbar1
    StatusBand& status;                                 // Text9, Label3, ProgressBar1, Picture16, Label2
    std::function<void(bool running)> setRunning = {};  // long work that can be stopped begins or ends

    [[nodiscard]] const core::Rotulos& rotulos() const { return core::rotulos(idioma); }
};

}  // namespace frame
