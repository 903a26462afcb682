#include "shell/frame/captions.h"
#include "shell/frame/enabling.h"
#include "shell/frame/menus.h"
#include "shell/frame/toolbar.h"

namespace shell {

void apply(const Enabled& enabled, MenuBar& menus, Toolbar& toolbar) {
    for (const Enabled::Entry& entry : enabled.entries)
        menus.setEnabled(toQString(entry.name), entry.enabled);
    for (int button = 1; button <= Toolbar::count; ++button)
        toolbar.setEnabled(button, enabled.buttons[button]);
}

}  // namespace shell
