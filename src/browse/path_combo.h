#pragma once

#include "browse/surface.h"
#include "engine/database.h"

namespace browse {

// ImageCombo1 above the list mirrors the current location: the units in tree order and at most one path.
// Choosing a unit browses to it much as a click on its node does, but its folders are loaded straight from
// the catalogue and stay unknown to the name lists.
class PathCombo {
  public:
    explicit PathCombo(Surface& surface) : m_surface(surface) {}

    void choose(int number);  // the user chose an item
    void textTyped();         // typing drops the path item

  private:
    void selectUnitNode(int number);
    [[nodiscard]] Node unitNode(const QString& disco) const;
    void loadUnit(engine::Database& database, Node node);

    Surface& m_surface;
};

}  // namespace browse
