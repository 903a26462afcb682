#pragma once

#include <optional>
#include <string>

#include "browse/surface.h"
#include "browse/tree_loader.h"

namespace browse {

// Puts a unit's folders under its node in the tree, with the progress bar, giving way to the event queue once
// a folder and stopping when the user asks. One unit is loaded at a time: whoever wants to load another one
// while this one gives way waits until it has ended. A load that fails leaves no folder in the tree, says why
// in the status line, and has no end.
class UnitLoad {
  public:
    enum class Names { Learn, Ignore };  // whether each folder put in is entered in the name lists

    UnitLoad(Surface& surface, Node unit, std::string disco, Names names);

    // From a private copy of the catalogue that holds only this unit, so that the many pattern queries run on
    // few rows. The copy is "temp.ejm" beside the catalogue; a load that the user stopped leaves it there.
    // Where it cannot be made the load reads the catalogue itself: the copy's delete never reaches it.
    std::optional<LoadEnd> fromWorkingCopy(const std::string& cataloguePath);

    // Straight from an open catalogue.
    std::optional<LoadEnd> fromCatalogue(engine::Database& database);

  private:
    std::optional<LoadEnd> from(engine::Database& database, FirstLevel first);
    void removeFolders();

    Surface& m_surface;
    Node m_unit;
    std::string m_disco;
    Names m_names;
};

}  // namespace browse
