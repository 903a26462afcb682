#pragma once

#include <string>

#include "browse/surface.h"
#include "browse/tree_loader.h"

namespace browse {

// Puts a unit's folders under its node in the tree, with the progress bar, giving way to the event queue once
// a folder and stopping when the user asks.
class UnitLoad {
  public:
    enum class Names { Learn, Ignore };  // whether each folder put in is entered in the name lists

    UnitLoad(Surface& surface, Node unit, std::string disco, Names names);

    // From a private copy of the catalogue that holds only this unit, so that the many pattern queries run on
    // few rows. The copy is "temp.ejm" beside the catalogue; a stopped load leaves it there. Where the copy
    // cannot be made the load reads the catalogue itself: the copy's delete never reaches it.
    LoadEnd fromWorkingCopy(const std::string& cataloguePath);

    // Straight from an open catalogue.
    LoadEnd from(engine::Database& database, FirstLevel first);

  private:
    Surface& m_surface;
    Node m_unit;
    std::string m_disco;
    Names m_names;
};

}  // namespace browse
