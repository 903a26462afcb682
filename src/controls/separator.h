#pragma once

#include <QFrame>

namespace controls {

// A sunken line across a dialog. Its parent owns it.
inline QFrame* makeSeparator(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    return line;
}

}  // namespace controls
