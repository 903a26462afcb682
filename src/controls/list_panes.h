#pragma once

#include <QListView>
#include <QStyledItemDelegate>
#include <QTreeView>

#include "controls/list_view.h"

// The two views inside a ListView. Both tell their owner what mouse and keys did.
namespace controls {

// Shows a text that does not fit with an ellipsis and whole in its tool tip.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool firstColumnOnly = false;  // of the selection
    bool largeIcons = false;
    QSize cell;  // of every item; empty in the report, where columns and font decide

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& place) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& place) override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& place) const override;

  private:
    [[nodiscard]] bool isCut(const QStyleOptionViewItem& option, const QModelIndex& place) const;
};

// The handlers that both views have in common.
template <class Base>
class ListPane : public Base {
  public:
    explicit ListPane(ListView* owner);

    RowDelegate* rows() const { return m_rows; }

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    // The place under the mouse, unless it lies in a column that does not react.
    QModelIndex reactingPlace(const QPoint& position) const;
    void clickCurrent();

    ListView* m_owner;
    RowDelegate* m_rows;
};

class ReportView : public ListPane<QTreeView> {
    Q_OBJECT
  public:
    explicit ReportView(ListView* owner);

  protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& place,
                                                         const QEvent* event) const override;
};

class IconsView : public ListPane<QListView> {
    Q_OBJECT
  public:
    explicit IconsView(ListView* owner);
    // Large icons stand over their texts in rows; small ones before them, in rows or (list) in columns.
    void arrange(ListView::View view);

  protected:
    [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& selection) const override;

  private:
    [[nodiscard]] int widestText() const;
};

}  // namespace controls
