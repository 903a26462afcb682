#pragma once

#include <QIcon>
#include <QString>

namespace controls {

// The numbered pictures of lists, trees and combos, all of one hand: a theme has two that look alike, and
// another set for small sizes. Any other number gives a null icon.
inline constexpr int pictureCount = 17;
[[nodiscard]] QIcon picture(int number);

// An icon for a menu entry or toolbar button by its freedesktop name ("document-open"), with the style's own
// symbol or a drawn one behind it.
[[nodiscard]] QIcon actionIcon(const QString& name);

// To be called once an application object exists: finds the installed themes and takes Breeze, light or dark
// after the palette, when the desktop names no theme of its own.
void installIconTheme();

// To be called when the application's palette has changed: Breeze follows from light to dark and back.
void followPalette();

}  // namespace controls
