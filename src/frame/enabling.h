#pragma once

#include <array>
#include <string_view>
#include <vector>

namespace frame {

class MenuBar;
class Toolbar;

// What decides which menu entries and toolbar buttons can be used.
struct WindowState {
    bool catalogueOpen = false;
    bool running = false;        // a scan, or the load of a unit's folders
    bool listHasRows = false;    // when the mouse was last pressed on a list
    bool menuOfFolder = false;   // the tree's menu stands over a node that is no unit
    bool recentMissing = false;  // the quick start found no last file

    bool operator==(const WindowState&) const = default;
};

struct Enabled {
    struct Entry {
        std::string_view name;
        bool enabled;
        bool operator==(const Entry&) const = default;
    };
    std::vector<Entry> entries;      // those that are ever off; every other entry is always on
    std::array<bool, 16> buttons{};  // of the toolbar, by number from 1

    bool operator==(const Enabled&) const = default;
};

[[nodiscard]] Enabled enabledIn(const WindowState& state);

void apply(const Enabled& enabled, MenuBar& menus, Toolbar& toolbar);

}  // namespace frame
