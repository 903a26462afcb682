#pragma once

#include <QComboBox>

namespace controls {

// A combo whose items have a picture. Items are numbered from 1. Nothing is selected until
// somebody selects; removing the selected item leaves none selected.
class ImageCombo : public QComboBox {
    Q_OBJECT
  public:
    enum class Typing { No, Yes };
    explicit ImageCombo(Typing typing = Typing::No, QWidget* parent = nullptr);

    // The new item takes the number, which is at most one more than the last; others move up. False
    // otherwise.
    bool addItem(int number, const QString& text, int picture);
    bool removeItem(int number);
    void clear();

    [[nodiscard]] QString itemText(int number) const;
    void setItemText(int number, const QString& text);
    [[nodiscard]] int itemPicture(int number) const;  // 0 when there is no such item

    [[nodiscard]] int selectedItem() const;  // 0 for none
    void setSelected(int number);            // says nothing; 0 for none
    [[nodiscard]] QString text() const;      // as shown in the field
    // The text alone, where it can be typed; elsewhere selects the item of that text, if any.
    void setText(const QString& text);

  signals:
    void clicked(int number);  // the user chose an item, the same one included
    void textTyped(const QString& text);
};

}  // namespace controls
