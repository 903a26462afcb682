#include "frame/layout.h"

#include <algorithm>

namespace frame {

namespace {

constexpr int frameTop = -90, frameHeight = 1280;
constexpr int toolbarLeft = 40, toolbarTop = 150, toolbarHeight = 690;
constexpr int pathLabelLeft = 60, pathTop = 870, pathHeight = 350, pathLeft = 1000;
constexpr int spareHeight = frameHeight - pathTop - pathHeight;
constexpr int treeTop = 1200;
constexpr int splitterWidth = 90;
constexpr int statusHeight = 380;

// The heights are told for a whole window, title and menu bar included, so that the lists end where the
// status band begins. What is laid out here is what remains below these.
constexpr int titleAndMenu = 800;

}  // namespace

// First the lower bound, then the upper one: in a window narrower than both the upper one holds.
int releasedDivider(int position, int width) {
    return std::min(std::max(position, 1500), width - 1500);
}

WindowLayout computeLayout(const LayoutInput& input, const WindowLayout& before) {
    // A bigger letter makes the band of toolbar and combo higher, and everything below it starts lower; a
    // pixel or two more find room at the band's foot.
    const int toolbarGrowth = std::max(0, input.toolbarHeight - toolbarHeight);
    const int comboGrowth = std::max(0, input.comboHeight - pathHeight);
    const int growth = std::max(0, toolbarGrowth + comboGrowth - spareHeight);
    const int W = input.width;
    const int H = input.height + titleAndMenu - growth;
    const int status = std::max(statusHeight, input.statusHeight);

    WindowLayout layout = before;
    layout.frame = {0, frameTop, W - 100, frameHeight + growth};
    layout.toolbar = {toolbarLeft, toolbarTop, layout.frame.width - 50, toolbarHeight + toolbarGrowth};

    const int comboTop = pathTop + toolbarGrowth;
    const int comboHeight = std::max(pathHeight, input.comboHeight);
    const int comboLeft = std::max(pathLeft, pathLabelLeft + input.pathLabelWidth + 60);
    layout.pathLabel = {pathLabelLeft, comboTop, comboLeft - pathLabelLeft, comboHeight};
    layout.pathCombo = {comboLeft, comboTop, layout.frame.width - comboLeft, comboHeight};

    layout.tree.left = 0;
    layout.tree.top = treeTop + growth;
    layout.tree.width = input.divider;
    if (H - status - 1850 > 10) layout.tree.height = H - status - 2000;

    layout.splitter = {input.divider, layout.tree.top, splitterWidth, layout.tree.height};
    layout.list.left = input.divider + splitterWidth;
    layout.list.top = layout.tree.top;
    if (W - layout.tree.width - 50 > 10) layout.list.width = W - layout.splitter.left - 150;
    layout.list.height = layout.tree.height;

    // The band was laid out at 7620 in a window of fixed height; in one that can be resized it stays at the
    // foot.
    layout.status = {0, input.height - status, W, status};
    return layout;
}

}  // namespace frame
