#pragma once

#include <QComboBox>
#include <functional>

namespace search {

// An editable combo for a text to look for. Its list holds what its owner adds, for as long as the window
// lives; Enter doesn't add by itself and nothing is completed while typing.
[[nodiscard]] QComboBox* makeRecentCombo(const QString& name, const QString& accessibleName,
                                         std::function<void()> onEnter);

// Adds the combo's own text to its list, also when it is there already.
void rememberText(QComboBox& combo);

}  // namespace search
