#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QTreeView>

#include "controls/tree_model.h"

namespace controls {

// A tree of named nodes with pictures. A click selects and never opens or closes: that is for the plus sign,
// the Left and Right keys and setExpanded. The keyboard can do what the mouse can: moving the selection with
// the arrow keys, or Enter, counts as a click.
class TreeView : public QTreeView {
    Q_OBJECT
  public:
    explicit TreeView(QWidget* parent = nullptr);

    Node addNode(Node parent, const QString& text, int picture, int selectedPicture, const QString& key = {});
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

    void repaintNow();  // at once, for progress that shows while a procedure runs

  signals:
    void nodeClicked(int node);
    void mousePressed(Qt::MouseButton button, const QPoint& globalPosition);
    void afterLabelEdit(int node, const QString& newText);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;

  private:
    void doItemsLayout() override;
    bool selectCurrent();
    [[nodiscard]] bool layoutMustWait() const;
    void layOutLater();

    TreeModel m_model;
    // Nodes may come by the thousand into an open branch, with the event queue served in between. The rows
    // are then laid out again only now and then, so that this takes a small part of the time.
    QElapsedTimer m_sinceLayout;
    qint64 m_layoutCost = 0;  // nanoseconds
    QTimer m_layoutLater;
};

}  // namespace controls
