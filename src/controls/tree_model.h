#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QString>
#include <vector>

namespace controls {

// A handle of a node: good until the node is removed or all are cleared, and not given again before a clear.
using Node = int;
inline constexpr Node noNode = 0;  // also the invisible parent of the roots

// The nodes of a tree, kept compactly: a hundred thousand are nothing. Roots can be renamed.
//
// Views are told of a node's first child, and of the others only when they ask for more, which they do on
// opening it: so loading a closed branch costs them nothing.
class TreeModel : public QAbstractItemModel {
    Q_OBJECT
  public:
    explicit TreeModel(QObject* parent = nullptr);

    // Behind the last child of the parent; noNode when there is no such parent.
    Node add(Node parent, const QString& text, int picture, int selectedPicture);
    void remove(Node node);  // with all below it
    void clear();

    [[nodiscard]] int count() const { return static_cast<int>(m_inOrder.size()); }
    [[nodiscard]] bool contains(Node node) const;
    // The index of a node is its place, from 1, in the order in which nodes were added; removal closes the
    // gap. 0 for no such node.
    [[nodiscard]] int indexOf(Node node) const;
    [[nodiscard]] Node nodeAt(int index) const;

    [[nodiscard]] QString text(Node node) const;
    void setText(Node node, const QString& text);

    [[nodiscard]] Node parentOf(Node node) const;
    [[nodiscard]] int childCount(Node node) const;  // of noNode: the number of roots
    [[nodiscard]] Node firstChild(Node node) const;
    [[nodiscard]] Node lastChild(Node node) const;
    [[nodiscard]] Node nextSibling(Node node) const;
    [[nodiscard]] QString fullPath(Node node) const;  // from the root down, joined by backslashes

    // Where views find the node, once they were told of it.
    [[nodiscard]] QModelIndex place(Node node) const;
    void tell(Node node);
    void tellBelow(Node node);  // all that is below it
    [[nodiscard]] static Node nodeOf(const QModelIndex& place);

    // Every link has its counterpart: parents know their children in order, indices lead back.
    [[nodiscard]] bool isConsistent() const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& place, int role) const override;
    bool setData(const QModelIndex& place, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& place) const override;

    static constexpr int SelectedPictureRole = Qt::UserRole + 1;  // its number

  signals:
    // The user typed another text for a node; whoever listens sets what it is to be.
    void textEntered(int node, const QString& text);

  private:
    struct Entry {
        QString text;
        std::vector<Node> children;
        Node parent = noNode;
        int row = 0;    // among the children of the parent
        int index = 0;  // 0 once removed
        int told = 0;   // how many children views know of
        short picture = 0;
        short selectedPicture = 0;
        bool asked = false;  // a view wants to know all children
    };

    [[nodiscard]] const Entry& entry(Node node) const {
        return m_entries[static_cast<std::size_t>(node - 1)];
    }
    [[nodiscard]] Entry& entry(Node node) { return m_entries[static_cast<std::size_t>(node - 1)]; }
    [[nodiscard]] const std::vector<Node>& childrenOf(Node node) const;
    [[nodiscard]] std::vector<Node>& childrenOf(Node node);
    [[nodiscard]] int toldOf(Node parent) const;
    void forget(Node node);

    std::vector<Entry> m_entries;  // by handle less one
    std::vector<Node> m_roots;
    std::vector<Node> m_inOrder;  // by index less one
};

}  // namespace controls
