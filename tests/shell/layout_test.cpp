#include "frame/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "frame/enabling.h"

namespace {

using frame::Enabled;
using frame::LayoutInput;
using frame::WindowLayout;
using frame::WindowState;

constexpr frame::LayoutInput usual{.width = 12000, .height = 8000, .divider = 3600};

TEST(Layout, GrowsWithTheLetterAndOverlapsNothing) {
    frame::LayoutInput input = usual;
    input.toolbarHeight = 900;
    input.comboHeight = 500;
    input.pathLabelWidth = 1500;
    input.statusHeight = 520;
    const frame::WindowLayout layout = frame::computeLayout(input, {});
    EXPECT_EQ(layout.toolbar.height, 900);
    EXPECT_GE(layout.pathCombo.top, layout.toolbar.top + layout.toolbar.height);
    EXPECT_GE(layout.pathCombo.left, layout.pathLabel.left + 1500);
    EXPECT_GE(layout.tree.top, layout.frame.top + layout.pathCombo.top + layout.pathCombo.height);
    EXPECT_EQ(layout.tree.top + layout.tree.height, layout.status.top);
    EXPECT_EQ(layout.status.top + layout.status.height, input.height);
    EXPECT_EQ(layout.list.height, layout.tree.height);
    EXPECT_GE(layout.splitter.left, layout.tree.left + layout.tree.width);
    EXPECT_GE(layout.list.left, layout.splitter.left + layout.splitter.width);
    EXPECT_LE(layout.list.left + layout.list.width, input.width);
}

TEST(Layout, ATinyWindowKeepsWhatWouldVanish) {
    const frame::WindowLayout before = frame::computeLayout(usual, {});
    const frame::WindowLayout tiny =
        frame::computeLayout({.width = 3660, .height = 1440, .divider = 3600}, before);
    EXPECT_EQ(tiny.tree.height, before.tree.height);
    EXPECT_EQ(tiny.list.width, before.list.width);
    const frame::WindowLayout next =
        frame::computeLayout({.width = 3661, .height = 1441, .divider = 3600}, before);
    EXPECT_NE(next.tree.height, before.tree.height);
    EXPECT_NE(next.list.width, before.list.width);
}

// The entries that are off, in the order of their names, and behind "|" the buttons that are off.
std::string off(const frame::WindowState& state) {
    const frame::Enabled enabled = frame::enabledIn(state);
    std::vector<std::string> names;
    for (const frame::Enabled::Entry& entry : enabled.entries)
        if (!entry.enabled) names.emplace_back(entry.name);
    std::ranges::sort(names);
    std::string text;
    for (const std::string& name : names) text += name + ' ';
    text += '|';
    for (int button = 1; button <= 15; ++button)
        if (!enabled.buttons[button]) text += ' ' + std::to_string(button);
    return text;
}

TEST(Enabling, FollowsFromTheState) {
    EXPECT_EQ(
        off({}),
        "Copiararchivos Copiararchivos2 Herramientas Imprimir Parar1 buscar cerrar edicion explorar explore "
        "guardar ver | 4 5 6 7 8 9 10 11 12 13");
    EXPECT_EQ(off({.catalogueOpen = true}), "Copiararchivos Copiararchivos2 Parar1 | 13");
    EXPECT_EQ(off({.catalogueOpen = true, .running = true}),
              "Copiararchivos Copiararchivos2 compactar reparar |");
    EXPECT_EQ(off({.catalogueOpen = true, .listHasRows = true}), "Parar1 | 13");
    EXPECT_EQ(off({.catalogueOpen = true, .listHasRows = true, .menuOfFolder = true}),
              "Parar1 borrarunidad cambiarnombre | 13");
    EXPECT_EQ(off({.catalogueOpen = true, .listHasRows = true, .recentMissing = true}),
              "Parar1 reciente | 13");
}

}  // namespace
