#include "controls/tree_model.h"

#include <QStringList>
#include <algorithm>

#include "controls/pictures.h"

namespace controls {

TreeModel::TreeModel(QObject* parent) : QAbstractItemModel(parent) {}

const std::vector<Node>& TreeModel::childrenOf(Node node) const {
    return node == noNode ? m_roots : entry(node).children;
}

std::vector<Node>& TreeModel::childrenOf(Node node) {
    return node == noNode ? m_roots : entry(node).children;
}

Node TreeModel::add(Node parent, const QString& text, int picture, int selectedPicture) {
    if (parent != noNode && !contains(parent)) return noNode;
    const Node node = static_cast<Node>(m_entries.size()) + 1;
    const int row = childCount(parent);
    const bool tells = parent == noNode || row == 0 || entry(parent).asked;
    if (tells) beginInsertRows(place(parent), row, row);
    childrenOf(parent).push_back(node);
    m_inOrder.push_back(node);
    Entry& added = m_entries.emplace_back();
    added.text = text;
    added.parent = parent;
    added.row = row;
    added.index = count();
    added.picture = static_cast<short>(picture);
    added.selectedPicture = static_cast<short>(selectedPicture);
    if (!tells) return node;
    if (parent != noNode) entry(parent).told = row + 1;
    endInsertRows();
    return node;
}

int TreeModel::toldOf(Node parent) const {
    if (parent == noNode) return static_cast<int>(m_roots.size());
    return contains(parent) ? entry(parent).told : 0;
}

bool TreeModel::canFetchMore(const QModelIndex& parent) const {
    const Node node = nodeOf(parent);
    return contains(node) && !entry(node).asked && !entry(node).children.empty();
}

void TreeModel::fetchMore(const QModelIndex& parent) {
    if (!canFetchMore(parent)) return;
    Entry& asked = entry(nodeOf(parent));
    asked.asked = true;
    const int all = static_cast<int>(asked.children.size());
    if (asked.told == all) return;
    beginInsertRows(parent, asked.told, all - 1);
    asked.told = all;
    endInsertRows();
}

void TreeModel::tell(Node node) {
    std::vector<Node> above;
    for (Node parent = parentOf(node); parent != noNode; parent = parentOf(parent)) above.push_back(parent);
    for (auto parent = above.rbegin(); parent != above.rend(); ++parent) fetchMore(place(*parent));
}

void TreeModel::tellBelow(Node node) {
    std::vector<Node> pending{node};
    while (!pending.empty()) {
        const Node next = pending.back();
        pending.pop_back();
        fetchMore(place(next));
        for (const Node child : childrenOf(next))
            if (childCount(child) > 0) pending.push_back(child);
    }
}

// What is below a node was added behind it.
void TreeModel::forget(Node node) {
    const int first = entry(node).index - 1;
    std::vector<Node> pending{node};
    while (!pending.empty()) {
        const Node next = pending.back();
        pending.pop_back();
        Entry& gone = entry(next);
        pending.insert(pending.end(), gone.children.begin(), gone.children.end());
        gone = Entry{};
    }
    const auto isGone = [this](Node kept) { return entry(kept).index == 0; };
    m_inOrder.erase(std::remove_if(m_inOrder.begin() + first, m_inOrder.end(), isGone), m_inOrder.end());
    for (int at = first; at < count(); ++at) entry(nodeAt(at + 1)).index = at + 1;
}

void TreeModel::remove(Node node) {
    if (!contains(node)) return;
    const Node parent = entry(node).parent;
    const int row = entry(node).row;
    const bool wasTold = row < toldOf(parent);
    if (wasTold) beginRemoveRows(place(parent), row, row);
    std::vector<Node>& siblings = childrenOf(parent);
    siblings.erase(siblings.begin() + row);
    for (std::size_t at = static_cast<std::size_t>(row); at < siblings.size(); ++at)
        entry(siblings[at]).row = static_cast<int>(at);
    forget(node);
    if (!wasTold) return;
    if (parent != noNode) --entry(parent).told;
    endRemoveRows();
}

void TreeModel::clear() {
    beginResetModel();
    m_entries.clear();
    m_roots.clear();
    m_inOrder.clear();
    endResetModel();
}

bool TreeModel::contains(Node node) const {
    return node >= 1 && static_cast<std::size_t>(node) <= m_entries.size() && entry(node).index > 0;
}

int TreeModel::indexOf(Node node) const {
    return contains(node) ? entry(node).index : 0;
}

Node TreeModel::nodeAt(int index) const {
    return index < 1 || index > count() ? noNode : m_inOrder[static_cast<std::size_t>(index - 1)];
}

QString TreeModel::text(Node node) const {
    return contains(node) ? entry(node).text : QString();
}

void TreeModel::setText(Node node, const QString& text) {
    if (!contains(node)) return;
    entry(node).text = text;
    emit dataChanged(place(node), place(node));
}

Node TreeModel::parentOf(Node node) const {
    return contains(node) ? entry(node).parent : noNode;
}

int TreeModel::childCount(Node node) const {
    return node == noNode || contains(node) ? static_cast<int>(childrenOf(node).size()) : 0;
}

Node TreeModel::firstChild(Node node) const {
    return childCount(node) == 0 ? noNode : childrenOf(node).front();
}

Node TreeModel::lastChild(Node node) const {
    return childCount(node) == 0 ? noNode : childrenOf(node).back();
}

Node TreeModel::nextSibling(Node node) const {
    if (!contains(node)) return noNode;
    const std::vector<Node>& siblings = childrenOf(entry(node).parent);
    const auto next = static_cast<std::size_t>(entry(node).row) + 1;
    return next < siblings.size() ? siblings[next] : noNode;
}

QString TreeModel::fullPath(Node node) const {
    QStringList texts;
    for (; contains(node); node = entry(node).parent) texts.prepend(entry(node).text);
    return texts.join(QLatin1Char('\\'));
}

QModelIndex TreeModel::place(Node node) const {
    return contains(node) ? createIndex(entry(node).row, 0, static_cast<quintptr>(node)) : QModelIndex();
}

Node TreeModel::nodeOf(const QModelIndex& place) {
    return place.isValid() ? static_cast<Node>(place.internalId()) : noNode;
}

bool TreeModel::isConsistent() const {
    std::size_t reached = 0;
    std::vector<Node> parents{noNode};
    while (!parents.empty()) {
        const Node parent = parents.back();
        parents.pop_back();
        const std::vector<Node>& children = childrenOf(parent);
        if (static_cast<std::size_t>(toldOf(parent)) > children.size()) return false;
        for (std::size_t row = 0; row < children.size(); ++row) {
            const Node child = children[row];
            if (!contains(child) || entry(child).parent != parent) return false;
            if (entry(child).row != static_cast<int>(row) || nodeAt(entry(child).index) != child)
                return false;
            parents.push_back(child);
            ++reached;
        }
    }
    return reached == m_inOrder.size();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    const Node above = nodeOf(parent);
    if (column != 0 || row < 0 || row >= toldOf(above)) return {};
    return createIndex(row, 0, static_cast<quintptr>(childrenOf(above)[static_cast<std::size_t>(row)]));
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
    return place(parentOf(nodeOf(child)));
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    return toldOf(nodeOf(parent));
}

int TreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

bool TreeModel::hasChildren(const QModelIndex& parent) const {
    return childCount(nodeOf(parent)) > 0;
}

QVariant TreeModel::data(const QModelIndex& place, int role) const {
    const Node node = nodeOf(place);
    if (!contains(node)) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return entry(node).text;
        case Qt::DecorationRole:
            return controls::picture(entry(node).picture);
        case SelectedPictureRole:
            return entry(node).selectedPicture;
        default:
            return {};
    }
}

bool TreeModel::setData(const QModelIndex& place, const QVariant& value, int role) {
    const Node node = nodeOf(place);
    if (role != Qt::EditRole || !contains(node)) return false;
    emit textEntered(node, value.toString());
    return true;
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& place) const {
    const Node node = nodeOf(place);
    if (!contains(node)) return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (entry(node).parent == noNode) flags |= Qt::ItemIsEditable;
    if (entry(node).children.empty()) flags |= Qt::ItemNeverHasChildren;
    return flags;
}

}  // namespace controls

#include "moc_tree_model.cpp"
