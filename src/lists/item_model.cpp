#include "lists/item_model.h"

#include <algorithm>
#include <utility>

#include "controls/list_view.h"
#include "controls/pictures.h"
#include "platform/qtext.h"

namespace lists {

using platform::qtext;

ItemModel::ItemModel(QObject* parent) : QAbstractTableModel(parent) {
    for (int number = 1; number <= columns; ++number) m_columns.push_back({number, {}, Qt::AlignLeft});
}

void ItemModel::setColumns(std::vector<Column> columns) {
    beginResetModel();
    m_columns = std::move(columns);
    endResetModel();
}

void ItemModel::clear() {
    beginResetModel();
    m_store.clear();
    m_shown = 0;
    endResetModel();
}

void ItemModel::show() {
    const int added = static_cast<int>(m_store.size());
    if (added == m_shown) return;
    if (m_shown == 0) m_store.sortAgain();
    beginInsertRows({}, m_shown, added - 1);
    m_shown = added;
    endInsertRows();
}

void ItemModel::setNotes(int row, const QString& notes) {
    if (row < 0 || row >= m_shown) return;
    m_store.setNotes(static_cast<std::size_t>(row), notes.toStdString());
    emit dataChanged(index(row, 1), index(row, 1));
}

void ItemModel::renameUnits(const ItemStore::Units& which, const QString& disco) {
    m_store.renameUnits(which, disco.toStdString());
    if (m_shown > 0) emit dataChanged(index(0, 8), index(m_shown - 1, 8));
}

void ItemModel::removeUnits(const ItemStore::Units& which) {
    beginResetModel();
    m_store.removeUnits(which);
    m_shown = static_cast<int>(m_store.size());
    endResetModel();
}

void ItemModel::sort(ItemStore::Sorting sorting) {
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    m_store.sort(sorting);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

bool ItemModel::isConsistent() const {
    return m_store.isConsistent() && m_shown >= 0 && static_cast<std::size_t>(m_shown) <= m_store.size();
}

int ItemModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_shown;
}

int ItemModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant ItemModel::data(const QModelIndex& place, int role) const {
    if (!place.isValid() || place.row() >= m_shown) return {};
    const auto position = static_cast<std::size_t>(place.row());
    const Column& shown = m_columns[static_cast<std::size_t>(place.column())];
    const int column = shown.number - 1;
    switch (role) {
        case Qt::DisplayRole:
            return column == 0 ? qtext(m_store.text(position)) : qtext(m_store.subItem(position, column));
        case Qt::DecorationRole:
            return column == 0 ? QVariant(controls::picture(m_store.smallPicture(position))) : QVariant();
        case controls::ListView::LargeIconRole:
            return controls::picture(m_store.picture(position));
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(shown.alignment | Qt::AlignVCenter);
        case Qt::ToolTipRole:
            return column == 0 && showsWhereabouts() ? whereabouts(position) : QVariant();
        default:
            return {};
    }
}

bool ItemModel::showsWhereabouts() const {
    return std::ranges::any_of(m_columns, [](const Column& column) { return column.number > SubItem::Ruta; });
}

QString ItemModel::whereabouts(std::size_t position) const {
    const QString disco = qtext(m_store.subItem(position, SubItem::Disco));
    return qtext(m_store.text(position)) + u'\n' + disco + u'\n' +
           qtext(m_store.subItem(position, SubItem::Ruta));
}

QVariant ItemModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const Column& column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.caption;
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(column.alignment | Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags ItemModel::flags(const QModelIndex& place) const {
    if (!place.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

QModelIndexList ItemModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                 Qt::MatchFlags flags) const {
    if (role != Qt::DisplayRole || !start.isValid() || start.column() != 0 || hits != 1)
        return QAbstractTableModel::match(start, role, value, hits, flags);
    const QString prefix = value.toString();
    for (int step = 0; step < m_shown; ++step) {
        const int row = (start.row() + step) % m_shown;
        const std::string_view text = m_store.text(static_cast<std::size_t>(row));
        // A character of the prefix takes at most four bytes of the text.
        const std::string_view beginning = text.substr(0, static_cast<std::size_t>(prefix.size()) * 4);
        if (qtext(beginning).startsWith(prefix, Qt::CaseInsensitive)) return {index(row, 0)};
    }
    return {};
}

}  // namespace lists

#include "moc_item_model.cpp"
