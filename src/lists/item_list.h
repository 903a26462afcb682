#pragma once

#include <QWidget>
#include <vector>

#include "controls/list_view.h"
#include "lists/item_store.h"

namespace lists {

class ItemModel;

// ListView1 or ListView2: items in four views with columns, sorting by the hidden keys, selection and clicks.
// Built on controls::ListView over one compact model.
class ItemList : public QWidget {
    Q_OBJECT
  public:
    struct Column {
        QString caption;
        double width = 0;  // of the list's width; 0 for the columns that are never shown
        Qt::Alignment alignment = Qt::AlignLeft;
        QString longest = {};  // a text that is to be read whole; the columns without one make room for it
    };

    explicit ItemList(QWidget* parent = nullptr);

    void setColumns(const std::vector<Column>& columns);  // ten
    void setView(controls::ListView::View view);
    [[nodiscard]] controls::ListView::View view() const;
    void setFullRowSelect(bool on);
    [[nodiscard]] bool fullRowSelect() const;

    void clear();
    // A run of additions between beginFill and endFill is shown (and sorted, when sorting is on) at its end.
    void beginFill();
    void add(const ListItem& item);
    void endFill();

    [[nodiscard]] int count() const;
    [[nodiscard]] QString text(int position) const;
    [[nodiscard]] QString subItem(int position, int number) const;  // 1 to 9
    void setNotes(int position, const QString& notes);              // sub-item 1 of a shown item
    void renameUnits(const ItemStore::Units& which, const QString& disco);
    void removeUnits(const ItemStore::Units& which);  // nothing is selected then
    [[nodiscard]] int smallPicture(int position) const;
    [[nodiscard]] int selectedPosition() const;  // the current selected item, -1 for none
    [[nodiscard]] bool isSelected(int position) const;
    void select(int position);  // alone, and brings it into sight; not a click
    [[nodiscard]] const ItemStore& store() const;
    [[nodiscard]] const ItemModel& model() const { return *m_model; }

    void sort(ItemStore::Sorting sorting);  // selected items stay selected

  signals:
    void itemClicked(int position);    // pressed, or reached by a key
    void itemActivated(int position);  // double click or Enter
    void mousePressed(Qt::MouseButton button);
    void mouseReleased(Qt::MouseButton button, const QPoint& globalPosition);
    void columnClicked(int column);  // from 1

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    [[nodiscard]] bool holds(int position) const;
    void applyWidths();
    [[nodiscard]] std::vector<int> fittingWidths() const;  // of the shown columns

    ItemModel* m_model;
    controls::ListView* m_view;
    std::vector<Column> m_columns;
    bool m_filling = false;
    bool m_applyingWidths = false;
    bool m_widthsAreTheUsers = false;  // once the user has dragged a column, resizing leaves the widths alone
};

// The two lists that lie over each other; the search list covers the browse list while it is shown.
struct Lists {
    ItemList& listView1;
    ItemList& listView2;
    [[nodiscard]] bool searchShown() const { return !listView2.isHidden(); }
    [[nodiscard]] ItemList& shown() const { return searchShown() ? listView2 : listView1; }
};

}  // namespace lists
