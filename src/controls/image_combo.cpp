#include "controls/image_combo.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QListView>
#include <QSignalBlocker>

#include "controls/accessible.h"
#include "controls/closed_combo.h"
#include "controls/pictures.h"

namespace controls {
namespace {
constexpr int pictureRole = Qt::UserRole + 2;
constexpr int visibleItems = 20;
}  // namespace

ImageCombo::ImageCombo(Typing typing, QWidget* parent) : QComboBox(parent) {
    installAccessibility();
    setEditable(typing == Typing::Yes);
    setInsertPolicy(QComboBox::NoInsert);
    setMaxVisibleItems(visibleItems);
    new ClosedCombo(this);
    // Long paths must not widen the window.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    if (auto* list = qobject_cast<QListView*>(view())) list->setUniformItemSizes(true);
    connect(this, &QComboBox::activated, this, [this](int place) { emit clicked(place + 1); });
    if (lineEdit() != nullptr) {
        setCompleter(nullptr);
        connect(lineEdit(), &QLineEdit::textEdited, this, &ImageCombo::textTyped);
    }
}

bool ImageCombo::addItem(int number, const QString& text, int picture) {
    if (number < 1 || number > count() + 1) return false;
    const QString typed = currentText();
    const bool none = currentIndex() < 0;
    insertItem(number - 1, controls::picture(picture), text);
    setItemData(number - 1, picture, pictureRole);
    if (none) {  // the base class selects the first item that it gets
        setCurrentIndex(-1);
        if (isEditable()) setEditText(typed);
    }
    return true;
}

bool ImageCombo::removeItem(int number) {
    if (number < 1 || number > count()) return false;
    if (selectedItem() == number) setCurrentIndex(-1);  // else the base class selects a neighbour
    QComboBox::removeItem(number - 1);
    return true;
}

void ImageCombo::clear() {
    QComboBox::clear();
    if (isEditable()) clearEditText();
}

QString ImageCombo::itemText(int number) const {
    return QComboBox::itemText(number - 1);
}

void ImageCombo::setItemText(int number, const QString& text) {
    QComboBox::setItemText(number - 1, text);
}

int ImageCombo::itemPicture(int number) const {
    return itemData(number - 1, pictureRole).toInt();
}

int ImageCombo::selectedItem() const {
    return currentIndex() + 1;
}

void ImageCombo::setSelected(int number) {
    setCurrentIndex(number - 1);
    // Typed text may stand over an item that is selected already.
    if (isEditable()) setEditText(QComboBox::itemText(currentIndex()));
}

QString ImageCombo::text() const {
    return currentText();
}

void ImageCombo::setText(const QString& text) {
    if (isEditable())
        setEditText(text);
    else if (const int place = findText(text); place >= 0 || text.isEmpty())
        setCurrentIndex(place);
}

}  // namespace controls

#include "moc_image_combo.cpp"
