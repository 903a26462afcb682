#pragma once

#include <QPalette>

namespace test {

// As desktops have it at night.
inline QPalette darkPalette() {
    const QColor ground(0x31, 0x36, 0x3b), base(0x1b, 0x1e, 0x20), letters(0xef, 0xf0, 0xf1);
    QPalette palette(letters, ground, QColor(0x50, 0x56, 0x5c), QColor(0x1d, 0x20, 0x23),
                     QColor(0x3b, 0x40, 0x45), letters, Qt::white, base, ground);
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x7a, 0xa8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x5d, 0xb8, 0xf0));
    palette.setColor(QPalette::PlaceholderText, QColor(0xa1, 0xa9, 0xb1));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    return palette;
}

}  // namespace test
