#pragma once

namespace frame {

// Where the main window's controls stand. All figures are twips, 15 to a pixel, from the top left corner of
// the client area below the menu bar.

struct Rect {
    int left = 0, top = 0, width = 0, height = 0;
    bool operator==(const Rect&) const = default;
};

struct WindowLayout {
    Rect frame;      // Frame1, the band of toolbar and path combo
    Rect toolbar;    // Toolbar1, within Frame1
    Rect pathLabel;  // Label4, within Frame1
    Rect pathCombo;  // ImageCombo1, within Frame1
    Rect tree;       // TreeView1, and the panels that take its place
    Rect splitter;   // imgSplitter
    Rect list;       // ListView1 and ListView2
    Rect status;     // Picture4
    bool operator==(const WindowLayout&) const = default;
};

struct LayoutInput {
    int width = 0;  // of the client area
    int height = 0;
    int divider = 0;  // left of imgSplitter, which is the width of the tree

    // What the controls need at the font in use; the smaller figures of the layout are kept.
    int toolbarHeight = 0;
    int comboHeight = 0;
    int pathLabelWidth = 0;
    int statusHeight = 0;
};

// A window too small for the tree's height or the lists' width leaves these as they were in `before`.
[[nodiscard]] WindowLayout computeLayout(const LayoutInput& input, const WindowLayout& before);

// Where the divider stays that was let go at this position, in a client area of this width.
[[nodiscard]] int releasedDivider(int position, int width);

}  // namespace frame
