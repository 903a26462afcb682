#pragma once

#include <QHash>
#include <cstdint>
#include <optional>

#include "mount/directory.h"

namespace mount {

// The nodes that somebody holds a number of, with the folders that they are in: all that must outlive a
// change of the catalogue. About 30 bytes a node.
class KnownNodes {
  public:
    void remember(NodeId id, NodeId folder) {
        Node& node = m_nodes[id];
        node.folder = folder;
        ++node.times;
    }
    void forget(NodeId id, std::uint64_t times) {
        const auto found = m_nodes.find(id);
        if (found == m_nodes.end()) return;
        if (found->times > times)
            found->times -= times;
        else
            m_nodes.erase(found);
    }
    [[nodiscard]] std::optional<NodeId> folderOf(NodeId id) const {
        const auto found = m_nodes.find(id);
        return found == m_nodes.end() ? std::nullopt : std::optional(found->folder);
    }

  private:
    struct Node {
        NodeId folder = 0;
        std::uint64_t times = 0;
    };
    QHash<NodeId, Node> m_nodes;
};

}  // namespace mount
