#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

#include "browse/item_store.h"

namespace browse {

class ItemModel;

// ListView1 or ListView2: items in four views with columns, sorting by the hidden keys, selection and clicks.
// Built on controls::ListView over one compact model.
class ItemList : public QWidget {
    Q_OBJECT
  public:
    explicit ItemList(QWidget* parent = nullptr);

    void clear();
    // A run of additions between beginFill and endFill is shown (and sorted, when sorting is on) at its end.
    void beginFill();
    void add(const ListItem& item);
    void endFill();

    [[nodiscard]] int count() const;
    [[nodiscard]] QString text(int position) const;
    [[nodiscard]] QString subItem(int position, int number) const;  // 1 to 9
    void setNotes(int position, const QString& notes);              // sub-item 1 of a shown item
    [[nodiscard]] int smallPicture(int position) const;
    [[nodiscard]] int selectedPosition() const;  // the current selected item, -1 for none
    [[nodiscard]] bool isSelected(int position) const;
    [[nodiscard]] const ItemStore& store() const;

  signals:
    void itemClicked(int position);
    void itemActivated(int position);  // double click or Enter
    void mousePressed(Qt::MouseButton button);
    void mouseReleased(Qt::MouseButton button, const QPoint& globalPosition);
    void columnClicked(int column);  // from 1
};

// The two lists that lie over each other; the search list covers the browse list while it is shown.
struct Lists {
    ItemList& listView1;
    ItemList& listView2;
    [[nodiscard]] bool searchShown() const { return !listView2.isHidden(); }
    [[nodiscard]] ItemList& shown() const { return searchShown() ? listView2 : listView1; }
};

}  // namespace browse
