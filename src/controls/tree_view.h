#pragma once

#include <QAbstractItemDelegate>
#include <QTreeView>

#include "controls/tree_model.h"

namespace controls {

// A tree of named nodes with pictures. A click selects and never opens or closes: that is for the plus sign,
// the Left and Right keys and setExpanded. The keyboard can do what the mouse can: moving the selection with
// the arrow keys, or Enter, counts as a click. So does a press that slips onto another row and selects it. A
// click with Ctrl deselects nothing.
class TreeView : public QTreeView {
    Q_OBJECT
  public:
    explicit TreeView(QWidget* parent = nullptr);

    Node addNode(Node parent, const QString& text, int picture, int selectedPicture);
    void remove(Node node);  // with all below it
    void clear();
    void setText(Node node, const QString& text);

    // What the nodes are and how they hang together.
    [[nodiscard]] const TreeModel& nodes() const { return m_model; }

    using QTreeView::isExpanded;
    using QTreeView::setExpanded;
    [[nodiscard]] bool isExpanded(Node node) const;
    void setExpanded(Node node, bool expanded);
    [[nodiscard]] Node selected() const;  // noNode for none
    void setSelected(Node node);          // shows it; does not count as a click

    // Lets the user type another text over a root. When it is entered, the old one unchanged included,
    // afterLabelEdit tells it; the node keeps its old text until a listener sets another.
    void editLabel(Node node);

    // While one lives, nodes may come by the thousand into an open branch, with the event queue served in
    // between. Rows are then laid out when their number has grown by a share, and before anyone asks where
    // one is.
    class Filling {
      public:
        explicit Filling(TreeView& tree) : m_tree(tree) { ++m_tree.m_fillings; }
        ~Filling();
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;

      private:
        TreeView& m_tree;
    };

    [[nodiscard]] QModelIndex indexAt(const QPoint& place) const override;
    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    void repaintNow();  // at once, for progress that shows while a procedure runs

  signals:
    void nodeClicked(int node);
    void mousePressed(Qt::MouseButton button, const QPoint& globalPosition);
    void afterLabelEdit(int node, const QString& newText);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& place,
                                                                       const QEvent* event) const override;
    void doItemsLayout() override;
    void layOutIfDue();
    bool selectCurrent();
    void beginOnFirstRow();
    [[nodiscard]] Node nodeUnder(const QMouseEvent& event) const;
    void clickIfNew(Node before);

    TreeModel m_model;
    Node m_pressed = noNode;         // the node under the pointer when a button was pressed,
    Node m_selectedBefore = noNode;  // and the one that was selected until then
    int m_fillings = 0;
    int m_rowsWaiting = 0;  // put in since the rows were laid out
    bool m_layoutDue = false;
};

}  // namespace controls
