#pragma once

#include "browse/opening.h"
#include "browse/surface.h"

namespace search {
class SearchPanel;
}

namespace shell {

class Switching;

// The operations on the whole catalogue or a whole unit: compaction, repair, deleting and renaming.
class MaintenanceActions {
  public:
    MaintenanceActions(browse::Surface& surface, browse::Opening& opening, Switching& switching,
                       search::SearchPanel& picture1)
        : m_surface(surface), m_opening(opening), m_switching(switching), m_picture1(picture1) {}

    void compactar();
    void reparar();
    void eliminar();       // every row of the catalogue, after two questions
    void borrarunidad();   // the selected unit; nothing happens with a folder selected
    void cambiarnombre();  // starts the label edit
    // The edit ended with this text: renames the unit, or leaves the label as it was and gives false.
    bool rename(browse::Node unit, const QString& newText);

  private:
    [[nodiscard]] bool isShown(const std::string& disco) const;  // in the tree, case not counting
    [[nodiscard]] bool confirmed(const core::Bilingual& question);
    void tell(const engine::Error& error);
    void removeSelectedUnit(browse::Node unit);
    // Roots and items of units that are no more, but for the one to keep.
    void forgetUnits(const lists::ItemStore::Units& gone, browse::Node kept = browse::noNode);
    void emptySurface();
    void showRepaired(const std::string& damaged);  // the name under which that file is kept
    void showRenamed(browse::Node unit, const QString& disco, const QString& renamed);

    browse::Surface& m_surface;
    browse::Opening& m_opening;
    Switching& m_switching;
    search::SearchPanel& m_picture1;
};

}  // namespace shell
