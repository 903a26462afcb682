#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "lists/item_store.h"

namespace lists {

// The items of a store as rows. An item has ten columns, the text and its sub-items; the model has those that
// are shown, so that neither an eye nor a screen reader meets the others. What was added since the last
// show() is in the store and not yet among the rows.
class ItemModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    static constexpr int columns = 1 + subItemCount;

    explicit ItemModel(QObject* parent = nullptr);

    [[nodiscard]] const ItemStore& store() const { return m_store; }
    struct Column {
        int number = 1;  // of the item's column, from 1
        QString caption;
        Qt::Alignment alignment = Qt::AlignLeft;
    };
    void setColumns(std::vector<Column> columns);  // those that are shown; all ten until then
    [[nodiscard]] const std::vector<Column>& shownColumns() const { return m_columns; }

    void clear();
    void add(const ListItem& item) { m_store.add(item); }
    void show();  // sorted, when sorting is on and nothing was shown before
    void setNotes(int row, const QString& notes);
    void renameUnits(const ItemStore::Units& which, const QString& disco);
    void removeUnits(const ItemStore::Units& which);
    // Moves no selection: whoever shows it restores that by the numbers of the items.
    void sort(ItemStore::Sorting sorting);

    [[nodiscard]] bool isConsistent() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& place, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& place) const override;
    // By the beginning of the text, for a million rows at the speed of typing.
    [[nodiscard]] QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                        Qt::MatchFlags flags) const override;

  private:
    // In the search list: its last columns are often out of sight, and the views of icons have none.
    [[nodiscard]] bool showsWhereabouts() const;
    [[nodiscard]] QString whereabouts(std::size_t position) const;

    ItemStore m_store;
    int m_shown = 0;
    std::vector<Column> m_columns;
};

}  // namespace lists
