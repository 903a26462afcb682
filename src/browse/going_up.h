#pragma once

#include "browse/surface.h"
#include "engine/database.h"

namespace browse {

// One level towards the unit. It acts on the tree's selection and lists it anew with statements and a
// size of its own.
class GoingUp {
  public:
    explicit GoingUp(Surface& surface) : m_surface(surface) {}

    void arriba();  // nothing happens until a node was clicked
    void volveratras();

  private:
    void listUnit(engine::Database& database, Node node);
    void listFolder(engine::Database& database, Node node);

    Surface& m_surface;
};

}  // namespace browse
