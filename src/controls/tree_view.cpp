#include "controls/tree_view.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QStyledItemDelegate>

#include "controls/pictures.h"
#include "controls/shown_text.h"

namespace controls {
namespace {

constexpr int layoutShare = 20;  // a filling tree is laid out when one part in so many is new

// A selected node may have a picture of its own, such as the open folder.
class NodeDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale&) const override {
        return onOneLine(value.toString());
    }

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
}

Node TreeView::addNode(Node parent, const QString& text, int picture, int selectedPicture) {
    return m_model.add(parent, text, picture, selectedPicture);
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
    layOutIfDue();
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
    layOutIfDue();
    executeDelayedItemsLayout();
    viewport()->repaint();
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    layOutIfDue();
    m_pressed = nodeUnder(*event);
    m_selectedBefore = selected();
    QTreeView::mousePressEvent(event);
    // A menu is for the node under the pointer, so that node is clicked first.
    if (event->button() == Qt::RightButton) clickIfNew(m_selectedBefore);
    emit mousePressed(event->button(), event->globalPosition().toPoint());
}

// The base class moves the selection along with a pressed button, and tells of no click when it is let go
// over another row.
void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    const bool slipped = nodeUnder(*event) != m_pressed;
    QTreeView::mouseReleaseEvent(event);
    if (slipped && event->button() == Qt::LeftButton) clickIfNew(m_selectedBefore);
}

// With Ctrl the base class would deselect the node, and nothing would stand for what is listed.
QItemSelectionModel::SelectionFlags TreeView::selectionCommand(const QModelIndex& place,
                                                               const QEvent* event) const {
    const auto command = QTreeView::selectionCommand(place, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate : command;
}

Node TreeView::nodeUnder(const QMouseEvent& event) const {
    return TreeModel::nodeOf(indexAt(event.position().toPoint()));
}

void TreeView::clickIfNew(Node before) {
    if (selected() != before && selected() != noNode) emit nodeClicked(selected());
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    // What the editor of a label has no use for comes here, and must not lead to another node.
    if (state() == QAbstractItemView::EditingState) return;
    layOutIfDue();
    beginOnFirstRow();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const Node before = selected();
    const bool moves = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (event->key() == Qt::Key_Asterisk && before != noNode) {
        const Filling filling(*this);
        m_model.tellBelow(before);  // the base class opens the branch, as far as it has been told of it
    }
    // The base class starts on the first row without selecting it, and would go past it or stay as it is.
    if (!(enter || moves) || !selectCurrent()) QTreeView::keyPressEvent(event);
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) selectCurrent();
    const Node now = selected();
    if (now != noNode && (enter || now != before)) emit nodeClicked(now);
}

// The Tab key would go on to the next label, and leaving that one would enter it as a new name.
void TreeView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint) {
    QTreeView::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

TreeView::Filling::~Filling() {
    if (--m_tree.m_fillings == 0) m_tree.layOutIfDue();
}

void TreeView::rowsInserted(const QModelIndex& parent, int first, int last) {
    m_rowsWaiting += last - first + 1;
    if (m_fillings == 0 || m_rowsWaiting >= m_model.count() / layoutShare)
        return QTreeView::rowsInserted(parent, first, last);
    QAbstractItemView::rowsInserted(parent, first, last);
    m_layoutDue = true;
}

void TreeView::doItemsLayout() {
    m_layoutDue = false;
    m_rowsWaiting = 0;
    QTreeView::doItemsLayout();
}

void TreeView::layOutIfDue() {
    if (m_layoutDue) doItemsLayout();
}

QModelIndex TreeView::indexAt(const QPoint& place) const {
    const_cast<TreeView*>(this)->layOutIfDue();  // as the base class does with a layout of its own
    return QTreeView::indexAt(place);
}

QRect TreeView::visualRect(const QModelIndex& index) const {
    const_cast<TreeView*>(this)->layOutIfDue();
    return QTreeView::visualRect(index);
}

void TreeView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    layOutIfDue();
    QTreeView::scrollTo(index, hint);
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    beginOnFirstRow();
    // The mouse was served when it was pressed; here comes the menu key.
    if (event->reason() != QContextMenuEvent::Keyboard || !currentIndex().isValid()) return;
    if (selectCurrent()) emit nodeClicked(selected());
    emit mousePressed(Qt::RightButton, viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
}

// The toolkit does so when the focus comes, but a tree may have had the focus before its first row.
void TreeView::beginOnFirstRow() {
    if (currentIndex().isValid() || m_model.rowCount({}) == 0) return;
    selectionModel()->setCurrentIndex(m_model.index(0, 0, {}), QItemSelectionModel::NoUpdate);
}

// A tree that the Tab key reaches has a current node that is not selected yet. True when it is now.
bool TreeView::selectCurrent() {
    if (!currentIndex().isValid() || selected() != noNode) return false;
    setCurrentIndex(currentIndex());
    return selected() != noNode;
}

}  // namespace controls

#include "moc_tree_view.cpp"
