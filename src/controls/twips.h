#pragma once

namespace controls {

// Layout figures are given in twips, 1440 to the inch: at the 96 dots an inch of a desktop, 15 to a pixel.
inline constexpr int twipsPerPixel = 15;

[[nodiscard]] constexpr int pixels(int twips) {
    const int half = twips < 0 ? -twipsPerPixel / 2 : twipsPerPixel / 2;
    return (twips + half) / twipsPerPixel;
}
[[nodiscard]] constexpr int twips(int pixels) {
    return pixels * twipsPerPixel;
}

}  // namespace controls
