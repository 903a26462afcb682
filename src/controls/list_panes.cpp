#include "controls/list_panes.h"

#include <QAbstractItemModel>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QStyleOption>
#include <QTextLayout>
#include <QToolTip>
#include <algorithm>

#include "controls/shown_text.h"
#include "controls/tool_tip.h"

namespace controls {
namespace {

constexpr int largeIcon = 48;
constexpr int smallIcon = 16;
constexpr int cellMargin = 4;
constexpr int largeIconLines = 2;

constexpr QChar ellipsis(0x2026);

// As a large icon's caption: the first line broken where it must be, the rest cut in its middle, so that the
// ending of a file's name stays.
QString inTwoLines(const QString& text, const QFont& font, int width) {
    QTextLayout layout(text, font);
    QTextOption wrapping;
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(wrapping);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    layout.endLayout();
    const int broken = line.textLength();
    if (broken >= text.size()) return text;
    const QString rest = QFontMetrics(font).elidedText(text.mid(broken), Qt::ElideMiddle, width);
    return text.left(broken).trimmed() + QChar(QChar::LineSeparator) + rest;
}

int captionWidth(const QStyleOptionViewItem& option) {
    return option.rect.width() - 3 * cellMargin;
}

// A caption at the right edge would touch the next column's.
class Header : public QHeaderView {
  public:
    explicit Header(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

  protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override {
        QHeaderView::initStyleOptionForIndex(option, column);
        if (option->textAlignment.testFlag(Qt::AlignRight)) option->text += u' ';
    }
};

}  // namespace

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& place) const {
    QStyledItemDelegate::initStyleOption(option, place);
    if (firstColumnOnly && place.column() != 0)
        option->state &= ~(QStyle::State_Selected | QStyle::State_MouseOver);
    if (!largeIcons) return;
    option->decorationPosition = QStyleOptionViewItem::Top;
    option->decorationAlignment = Qt::AlignCenter;
    option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
    option->text = inTwoLines(option->text, option->font, captionWidth(*option));
    if (const auto icon = place.data(ListView::LargeIconRole); icon.isValid()) {
        option->icon = icon.value<QIcon>();
        option->decorationSize = {largeIcon, largeIcon};
    }
}

// The first row's height is that of all.
QString RowDelegate::displayText(const QVariant& value, const QLocale&) const {
    return onOneLine(value.toString());
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& place) const {
    return cell.isEmpty() ? QStyledItemDelegate::sizeHint(option, place) : cell;
}

bool RowDelegate::isCut(const QStyleOptionViewItem& option, const QModelIndex& place) const {
    if (!largeIcons) return QStyledItemDelegate::sizeHint(option, place).width() > option.rect.width();
    const QString text = onOneLine(place.data().toString());
    return !text.contains(ellipsis) && inTwoLines(text, option.font, captionWidth(option)).contains(ellipsis);
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& place) {
    if (event->type() != QEvent::ToolTip || !place.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, place);
    QString told = place.data(Qt::ToolTipRole).toString();
    if (told.isEmpty() && isCut(option, place)) told = place.data().toString();
    if (told.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), toolTipOf(told), view);
    return !told.isEmpty();
}

template <class Base>
ListPane<Base>::ListPane(ListView* owner) : Base(owner), m_owner(owner), m_rows(new RowDelegate(this)) {
    this->setItemDelegate(m_rows);
    this->setSelectionMode(QAbstractItemView::ExtendedSelection);
    this->setSelectionBehavior(QAbstractItemView::SelectRows);
    this->setEditTriggers(QAbstractItemView::NoEditTriggers);
    this->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    this->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    this->setTextElideMode(Qt::ElideMiddle);  // the ending of a name stays
}

template <class Base>
QModelIndex ListPane<Base>::reactingPlace(const QPoint& position) const {
    const QModelIndex place = this->indexAt(position);
    return m_rows->firstColumnOnly && place.column() != 0 ? QModelIndex() : place;
}

template <class Base>
void ListPane<Base>::mousePressEvent(QMouseEvent* event) {
    const QModelIndex pressed = reactingPlace(event->position().toPoint());
    const auto globalPosition = event->globalPosition().toPoint();
    const Qt::MouseButton button = event->button();
    Base::mousePressEvent(event);
    if (pressed.isValid()) emit m_owner->rowClicked(pressed.row());
    emit m_owner->mousePressed(button, globalPosition);
}

template <class Base>
void ListPane<Base>::mouseReleaseEvent(QMouseEvent* event) {
    const auto globalPosition = event->globalPosition().toPoint();
    const Qt::MouseButton button = event->button();
    Base::mouseReleaseEvent(event);
    emit m_owner->mouseReleased(button, globalPosition);
}

template <class Base>
void ListPane<Base>::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex place = reactingPlace(event->position().toPoint());
    const bool left = event->button() == Qt::LeftButton;
    Base::mouseDoubleClickEvent(event);
    if (left && place.isValid()) emit m_owner->rowActivated(place.row());
}

template <class Base>
void ListPane<Base>::keyPressEvent(QKeyEvent* event) {
    const QModelIndex before = this->currentIndex();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!before.isValid()) return;
        clickCurrent();
        emit m_owner->rowActivated(before.row());
        return;
    }
    const bool moves =
        event->key() == Qt::Key_Down || event->key() == Qt::Key_Up || event->key() == Qt::Key_Home;
    if (moves && before.isValid() && !this->selectionModel()->hasSelection()) {
        // The focus has come to this row without selecting it, and the base class would go past it.
        clickCurrent();
        return;
    }
    const bool wasSelected = m_owner->isSelected(before.row());
    Base::keyPressEvent(event);
    const QModelIndex now = this->currentIndex();
    if (!now.isValid()) return;
    const bool newlySelected =
        !wasSelected && m_owner->isSelected(now.row());  // by Space, or with all others
    if (now.row() != before.row() || newlySelected) emit m_owner->rowClicked(now.row());
}

// As the press that comes before a double click or a menu. A list that the Tab key reaches has a current row
// that is not selected yet.
template <class Base>
void ListPane<Base>::clickCurrent() {
    const int row = this->currentIndex().row();
    if (!m_owner->isSelected(row)) m_owner->setCurrentRow(row);
    emit m_owner->rowClicked(row);
}

template <class Base>
void ListPane<Base>::contextMenuEvent(QContextMenuEvent* event) {
    // The mouse was served when it was pressed and released; here comes the menu key.
    event->accept();
    const QModelIndex current = this->currentIndex();
    if (event->reason() != QContextMenuEvent::Keyboard || !current.isValid()) return;
    clickCurrent();
    const QPoint position = this->viewport()->mapToGlobal(this->visualRect(current).bottomLeft());
    emit m_owner->mousePressed(Qt::RightButton, position);
    emit m_owner->mouseReleased(Qt::RightButton, position);
}

template class ListPane<QTreeView>;
template class ListPane<QListView>;

ReportView::ReportView(ListView* owner) : ListPane(owner) {
    setObjectName(QStringLiteral("report"));
    setHeader(new Header(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setIconSize({smallIcon, smallIcon});
    header()->setSectionsClickable(true);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);
}

QItemSelectionModel::SelectionFlags ReportView::selectionCommand(const QModelIndex& place,
                                                                 const QEvent* event) const {
    const bool mouse = event != nullptr && event->type() == QEvent::MouseButtonPress;
    if (mouse && m_rows->firstColumnOnly && place.column() != 0)
        return ListPane::selectionCommand(QModelIndex(), event);
    return ListPane::selectionCommand(place, event);
}

IconsView::IconsView(ListView* owner) : ListPane(owner) {
    setObjectName(QStringLiteral("icons"));
    setResizeMode(QListView::Adjust);
    setWrapping(true);
    setUniformItemSizes(true);
    setSelectionRectVisible(true);
}

// From a sample, so that a million names cost no more than some hundred.
int IconsView::widestText() const {
    constexpr int sample = 300;
    const int rows = model() == nullptr ? 0 : model()->rowCount();
    const int step = std::max(1, rows / sample);
    int widest = 0;
    for (int row = 0; row < rows; row += step)
        widest = std::max(
            widest, fontMetrics().horizontalAdvance(onOneLine(model()->index(row, 0).data().toString())));
    return widest;
}

// The base class would unite the cells of all selected rows, a million perhaps; what is in sight is soon
// painted.
QRegion IconsView::visualRegionForSelection(const QItemSelection&) const {
    return viewport()->rect();
}

void IconsView::arrange(ListView::View view) {
    const bool large = view == ListView::View::LargeIcons;
    const int letter = fontMetrics().averageCharWidth();
    const int line = fontMetrics().lineSpacing();
    m_rows->largeIcons = large;
    setIconSize(large ? QSize(largeIcon, largeIcon) : QSize(smallIcon, smallIcon));
    setFlow(view == ListView::View::List ? QListView::TopToBottom : QListView::LeftToRight);
    const int textWidth = std::clamp(widestText(), 14 * letter, 36 * letter);
    m_rows->cell =
        large ? QSize(18 * letter, largeIcon + largeIconLines * line + 3 * cellMargin)
              : QSize(smallIcon + textWidth + 5 * cellMargin, std::max(smallIcon, line) + cellMargin);
    setGridSize(m_rows->cell);
}

}  // namespace controls

#include "moc_list_panes.cpp"
