#include "controls/tree_view.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QStyledItemDelegate>

#include "controls/pictures.h"

namespace controls {
namespace {

constexpr qint64 cheapLayout = 1'000'000;  // nanoseconds
constexpr qint64 layoutShare = 20;         // one part in so many of the time

// A selected node may have a picture of its own, such as the open folder.
class NodeDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& place) const override {
        QStyledItemDelegate::initStyleOption(option, place);
        if ((option->state & QStyle::State_Selected) != 0)
            option->icon = picture(place.data(TreeModel::SelectedPictureRole).toInt());
    }
};

}  // namespace

TreeView::TreeView(QWidget* parent) : QTreeView(parent) {
    setModel(&m_model);
    setItemDelegate(new NodeDelegate(this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAnimated(false);
    setExpandsOnDoubleClick(false);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // As wide as the rows in sight, so that deep names can be scrolled to.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setResizeContentsPrecision(0);

    connect(this, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& place) { emit nodeClicked(TreeModel::nodeOf(place)); });
    connect(&m_model, &TreeModel::textEntered, this, &TreeView::afterLabelEdit);
    m_layoutLater.setSingleShot(true);
    connect(&m_layoutLater, &QTimer::timeout, this, &TreeView::doItemsLayout);
}

Node TreeView::addNode(Node parent, const QString& text, int picture, int selectedPicture,
                       const QString& key) {
    return m_model.add(parent, text, picture, selectedPicture, key);
}

void TreeView::remove(Node node) {
    m_model.remove(node);
}

void TreeView::clear() {
    m_model.clear();
}

void TreeView::setText(Node node, const QString& text) {
    m_model.setText(node, text);
}

bool TreeView::isExpanded(Node node) const {
    return QTreeView::isExpanded(m_model.place(node));
}

void TreeView::setExpanded(Node node, bool expanded) {
    m_model.tell(node);
    QTreeView::setExpanded(m_model.place(node), expanded);
}

Node TreeView::selected() const {
    const QModelIndex current = currentIndex();
    return selectionModel()->isSelected(current) ? TreeModel::nodeOf(current) : noNode;
}

void TreeView::setSelected(Node node) {
    m_model.tell(node);
    if (m_model.contains(node))
        setCurrentIndex(m_model.place(node));
    else
        selectionModel()->clear();
}

void TreeView::editLabel(Node node) {
    const QModelIndex place = m_model.place(node);
    if ((m_model.flags(place) & Qt::ItemIsEditable) == 0) return;
    setCurrentIndex(place);
    edit(place);
}

void TreeView::repaintNow() {
    executeDelayedItemsLayout();
    viewport()->repaint();
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    const Node before = selected();
    QTreeView::mousePressEvent(event);
    // A menu is for the node under the pointer, so that node is clicked first.
    if (event->button() == Qt::RightButton && selected() != before && selected() != noNode)
        emit nodeClicked(selected());
    emit mousePressed(event->button(), event->globalPosition().toPoint());
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    const bool editing = state() == QAbstractItemView::EditingState;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const Node before = selected();
    const bool moves = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    // The base class starts on the first row without selecting it, and would go past it.
    if (editing || !(enter || moves) || !selectCurrent()) QTreeView::keyPressEvent(event);
    const Node now = selected();
    if (!editing && now != noNode && (enter || now != before)) emit nodeClicked(now);
}

bool TreeView::layoutMustWait() const {
    return m_layoutCost > cheapLayout && m_sinceLayout.nsecsElapsed() < layoutShare * m_layoutCost;
}

void TreeView::rowsInserted(const QModelIndex& parent, int first, int last) {
    if (!layoutMustWait()) return QTreeView::rowsInserted(parent, first, last);
    QAbstractItemView::rowsInserted(parent, first, last);
    layOutLater();
}

void TreeView::layOutLater() {
    constexpr qint64 nanosecondsPerMillisecond = 1'000'000;
    if (!m_layoutLater.isActive())
        m_layoutLater.start(static_cast<int>(layoutShare * m_layoutCost / nanosecondsPerMillisecond) + 1);
}

void TreeView::doItemsLayout() {
    if (layoutMustWait()) return layOutLater();
    m_layoutLater.stop();
    m_sinceLayout.start();
    QTreeView::doItemsLayout();
    m_layoutCost = m_sinceLayout.nsecsElapsed();
    m_sinceLayout.start();
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    // The mouse was served when it was pressed; here comes the menu key.
    if (event->reason() != QContextMenuEvent::Keyboard || !currentIndex().isValid()) return;
    if (selectCurrent()) emit nodeClicked(selected());
    emit mousePressed(Qt::RightButton, viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
}

// A tree that the Tab key reaches has a current node that is not selected yet. True when it is now.
bool TreeView::selectCurrent() {
    if (!currentIndex().isValid() || selected() != noNode) return false;
    setCurrentIndex(currentIndex());
    return selected() != noNode;
}

}  // namespace controls
