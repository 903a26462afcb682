#include "search/recent_combo.h"

#include <QLineEdit>

#include "controls/accessible.h"
#include "controls/closed_combo.h"
#include "controls/key_filter.h"
#include "core/text.h"
#include "search/typed_text.h"

namespace search {

QComboBox* makeRecentCombo(const QString& name, const QString& accessibleName,
                           std::function<void()> onEnter) {
    auto* combo = new QComboBox;
    combo->setObjectName(name);
    combo->setEditable(true);
    controls::nameField(*combo, accessibleName);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);
    new controls::ClosedCombo(combo);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(6);
    combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    controls::KeyFilter::install(
        combo, [](char32_t typed) { return core::isAllowed(typed, nameCharacters); }, std::move(onEnter));
    return combo;
}

void rememberText(QComboBox& combo) {
    const QString text = combo.currentText();
    combo.addItem(text);
    combo.setEditText(text);
}

}  // namespace search
