#pragma once

#include <QFrame>

#include "controls/accessible.h"

namespace controls {

// A sunken line across a dialog. Its parent owns it.
inline QFrame* makeSeparator(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    silence(*line);
    return line;
}

}  // namespace controls
