#include "lists/item_list.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QStyle>
#include <algorithm>
#include <numeric>

#include "lists/column_sort.h"
#include "lists/item_model.h"
#include "platform/qtext.h"

namespace lists {
namespace {

// The fractions of the browse list add up to a little more than one; that is made to fit instead of scrolled.
constexpr double nearlyFits = 1.05;

// Which items are selected, by numbers that sorting does not change.
struct SelectedItems {
    std::vector<bool> selected;
    std::size_t current = 0;
    bool hasCurrent = false;
    bool any = false;
};

SelectedItems selectedItems(const QItemSelectionModel& selection, const ItemStore& store) {
    SelectedItems result;
    result.selected.resize(store.size());
    for (const QItemSelectionRange& range : selection.selection())
        for (int row = range.top(); row <= range.bottom(); ++row) {
            result.selected[store.numberOf(static_cast<std::size_t>(row))] = true;
            result.any = true;
        }
    result.hasCurrent = selection.currentIndex().isValid();
    if (result.hasCurrent)
        result.current = store.numberOf(static_cast<std::size_t>(selection.currentIndex().row()));
    return result;
}

void restore(QItemSelectionModel& selection, const ItemModel& model, const SelectedItems& kept) {
    QItemSelection ranges;
    const int rows = model.rowCount();
    int begin = -1;
    for (int row = 0; row <= rows; ++row) {
        const std::size_t number = row < rows ? model.store().numberOf(static_cast<std::size_t>(row)) : 0;
        const bool selected = row < rows && kept.selected[number];
        if (selected && begin < 0) begin = row;
        if (!selected && begin >= 0) {
            ranges.append(
                QItemSelectionRange(model.index(begin, 0), model.index(row - 1, model.columnCount() - 1)));
            begin = -1;
        }
        if (row < rows && kept.hasCurrent && number == kept.current)
            selection.setCurrentIndex(model.index(row, 0), QItemSelectionModel::NoUpdate);
    }
    selection.select(ranges, QItemSelectionModel::Select);
}

// What a column gives away first, and how many letters it keeps: sizes what they do not need, then kinds,
// which are few and known, then names. At last
// the list scrolls sideways.
struct Giver {
    int number;
    int letters;
};
constexpr Giver givers[] = {{4, 0}, {3, 20}, {1, 26}, {3, 12}, {1, 20}};

// Widens the columns that are too narrow; the result is by how much in all.
int widen(std::vector<int>& widths, const std::vector<int>& needed) {
    int widened = 0;
    for (std::size_t at = 0; at < widths.size(); ++at) {
        widened += std::max(0, needed[at] - widths[at]);
        widths[at] = std::max(widths[at], needed[at]);
    }
    return widened;
}

// Takes that much, or as much as there is, from the columns that may be cut.
void takeBack(int missing, std::vector<int>& widths, const std::vector<int>& needed,
              const std::vector<ItemModel::Column>& columns, int letter) {
    for (const Giver& giver : givers) {
        for (std::size_t at = 0; at < widths.size(); ++at) {
            if (columns[at].number != giver.number) continue;
            const int kept = std::max(needed[at], giver.letters * letter);
            const int taken = std::clamp(widths[at] - kept, 0, missing);
            widths[at] -= taken;
            missing -= taken;
        }
    }
}

}  // namespace

ItemList::ItemList(QWidget* parent)
    : QWidget(parent),
      m_model(new ItemModel(this)),
      m_view(new controls::ListView(this)),
      m_columns(ItemModel::columns) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    m_view->setModel(m_model);
    using controls::ListView;
    connect(m_view, &ListView::rowClicked, this, &ItemList::itemClicked);
    connect(m_view, &ListView::rowActivated, this, &ItemList::itemActivated);
    connect(m_view, &ListView::mousePressed, this, &ItemList::mousePressed);
    connect(m_view, &ListView::mouseReleased, this, &ItemList::mouseReleased);
    connect(m_view, &ListView::columnClicked, this, [this](int shown) {
        emit columnClicked(m_model->shownColumns()[static_cast<std::size_t>(shown - 1)].number);
    });
    connect(m_view, &ListView::columnResized, this, [this] { m_widthsAreTheUsers |= !m_applyingWidths; });
}

void ItemList::setColumns(const std::vector<Column>& columns) {
    m_columns = columns;
    m_columns.resize(ItemModel::columns);
    std::vector<ItemModel::Column> shown;
    for (int number = 1; const Column& column : m_columns) {
        if (column.width > 0) shown.push_back({number, column.caption, column.alignment});
        ++number;
    }
    m_model->setColumns(std::move(shown));
    m_widthsAreTheUsers = false;
    applyWidths();
}

std::vector<int> ItemList::fittingWidths() const {
    const double sum =
        std::accumulate(m_columns.begin(), m_columns.end(), 0.0,
                        [](double total, const Column& column) { return total + column.width; });
    const int frame = 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    const double inner = width() - frame - style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const double whole = sum > 1 && sum <= nearlyFits ? inner / sum : inner;
    const QFontMetrics metrics = m_view->fontMetrics();
    const int letter = metrics.averageCharWidth();
    std::vector<int> widths, needed;
    for (int place = 1; const ItemModel::Column& shown : m_model->shownColumns()) {
        const Column& column = m_columns[static_cast<std::size_t>(shown.number - 1)];
        widths.push_back(static_cast<int>(whole * column.width));
        const int content =
            column.longest.isEmpty() ? 0 : metrics.horizontalAdvance(column.longest) + 2 * letter;
        needed.push_back(std::max(content, m_view->captionWidth(place++)));
    }
    const int missing = widen(widths, needed);
    // A list that scrolls sideways has room for all.
    if (sum <= nearlyFits) takeBack(missing, widths, needed, m_model->shownColumns(), letter);
    return widths;
}

void ItemList::applyWidths() {
    m_applyingWidths = true;
    for (int place = 1; const int width : fittingWidths()) m_view->setColumnWidth(place++, width);
    m_applyingWidths = false;
}

void ItemList::setView(controls::ListView::View view) {
    m_view->setView(view);
}

controls::ListView::View ItemList::view() const {
    return m_view->view();
}

void ItemList::setFullRowSelect(bool on) {
    m_view->setFullRowSelect(on);
}

bool ItemList::fullRowSelect() const {
    return m_view->fullRowSelect();
}

void ItemList::clear() {
    m_model->clear();
}

void ItemList::beginFill() {
    m_filling = true;
}

void ItemList::add(const ListItem& item) {
    m_model->add(item);
    if (!m_filling) endFill();
}

void ItemList::endFill() {
    m_filling = false;
    const bool more = m_model->rowCount() > 0;
    m_model->show();
    if (more && store().sorting().on) sort(store().sorting());
}

int ItemList::count() const {
    return static_cast<int>(store().size());
}

QString ItemList::text(int position) const {
    return holds(position) ? platform::qtext(store().text(static_cast<std::size_t>(position))) : QString();
}

QString ItemList::subItem(int position, int number) const {
    return holds(position) ? platform::qtext(store().subItem(static_cast<std::size_t>(position), number))
                           : QString();
}

void ItemList::setNotes(int position, const QString& notes) {
    m_model->setNotes(position, notes);
}

void ItemList::renameUnits(const ItemStore::Units& which, const QString& disco) {
    m_model->renameUnits(which, disco);
    if (store().sorting().on) sort(store().sorting());
}

void ItemList::removeUnits(const ItemStore::Units& which) {
    m_model->removeUnits(which);
}

int ItemList::smallPicture(int position) const {
    return holds(position) ? store().smallPicture(static_cast<std::size_t>(position)) : 0;
}

int ItemList::selectedPosition() const {
    const int current = m_view->currentRow();
    if (m_view->isSelected(current)) return current;
    int first = -1;
    for (const QItemSelectionRange& range : m_view->selectionModel()->selection())
        if (first < 0 || range.top() < first) first = range.top();
    return first;
}

bool ItemList::isSelected(int position) const {
    return m_view->isSelected(position);
}

void ItemList::select(int position) {
    if (position >= 0 && position < m_model->rowCount()) m_view->setCurrentRow(position);
}

const ItemStore& ItemList::store() const {
    return m_model->store();
}

bool ItemList::holds(int position) const {
    return position >= 0 && position < count();
}

void ItemList::sort(ItemStore::Sorting sorting) {
    QItemSelectionModel& selection = *m_view->selectionModel();
    const SelectedItems kept = selectedItems(selection, store());
    selection.reset();  // in silence: to the outside the selection does not change
    m_model->sort(sorting);
    if (kept.any || kept.hasCurrent) restore(selection, *m_model, kept);
    const auto& shown = m_model->shownColumns();
    const auto sorted = std::ranges::find(shown, columnOfSortKey(sorting.key), &ItemModel::Column::number);
    const bool marked = sorting.on && sorted != shown.end();
    m_view->setSortIndicator(marked ? static_cast<int>(sorted - shown.begin()) + 1 : 0,
                             sorting.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ItemList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!m_widthsAreTheUsers) applyWidths();
}

void ItemList::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && !m_widthsAreTheUsers) applyWidths();
}

void ItemList::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_view->setListName(accessibleName());
}

}  // namespace lists

#include "moc_item_list.cpp"
