#include "frame/captions.h"
#include "frame/enabling.h"
#include "frame/menus.h"
#include "frame/toolbar.h"
#include "platform/qtext.h"

namespace frame {

void apply(const Enabled& enabled, MenuBar& menus, Toolbar& toolbar) {
    for (const Enabled::Entry& entry : enabled.entries)
        menus.setEnabled(platform::qtext(entry.name), entry.enabled);
    for (int button = 1; button <= Toolbar::count; ++button)
        toolbar.setEnabled(button, enabled.buttons[button]);
}

}  // namespace frame
