#pragma once

#include <QString>
#include <QStringView>
#include <span>
#include <string_view>

#include "core/language.h"

class QWidget;

namespace frame {

// The text of one control of the main window. Parts of a control are numbered from 1 behind its name: the
// toolbar's buttons "Toolbar1(7)", the entries of its eleventh button "Toolbar1(11)(2)", the tabs
// "TabStrip1(3)".
struct Caption {
    std::string_view control;
    core::Bilingual text;
};

// All of them, in the order in which the main window assigns them.
[[nodiscard]] std::span<const Caption> captions();

// The text of a control of the main window; null for a control that has none.
[[nodiscard]] QString caption(QStringView objectName, core::Language language);

// The tool tip of a toolbar button, 1 to 15; null for a separator.
[[nodiscard]] QString toolbarToolTip(int button, core::Language language);

// Writes the captions of all labels, buttons and tab strips below `root` that stand in the table.
void applyCaptions(QWidget& root, core::Language language);

}  // namespace frame
