#pragma once

#include <optional>

#include "browse/surface.h"
#include "browse/tree_loader.h"
#include "engine/database.h"

namespace browse {

// The click on a tree node: decides from the node's text what it is, loads a unit's folders when that has not
// happened yet, and fills ListView1 with the rows directly inside the node.
class NodeClick {
  public:
    explicit NodeClick(Surface& surface) : m_surface(surface) {}

    void click(Node node);

  private:
    void listUnit(engine::Database& database, Node node);
    void pointComboAtUnit(Node node);
    void listFolder(engine::Database& database, Node node);
    [[nodiscard]] bool loadFirst(Node node);
    std::optional<LoadEnd> load(Node node);
    void begin(Node node);
    void end();

    Surface& m_surface;
};

}  // namespace browse
