#pragma once

#include "browse/surface.h"
#include "engine/database.h"

namespace browse {

// What an opened catalogue needs of the other panels and of the window's geometry. Form1 implements it.
class OpeningHost {
  public:
    virtual ~OpeningHost() = default;
    virtual void
    resetPanels() = 0;  // types of the search panel, kinds of the import panel, notes panel, view cycle
    virtual void layOutPanes() = 0;  // tree, lists and panels around the divider
    virtual void selectFirstType() = 0;
};

// Prepares the browse surface for a freshly opened catalogue: one root per unit, combos, columns and totals.
// The tree must have been cleared before.
class Opening {
  public:
    Opening(Surface& surface, OpeningHost& host) : m_surface(surface), m_host(host) {}

    void inicio();
    void agregarcombo3();  // refills ImageCombo3 alone, after a unit was renamed
    void actualizar();     // the global counters and the geometry; neither tree nor list

    // The whole catalogue, then the units: what ImageCombo3 starts with.
    void resetImageCombo3();
    // A unit's root in the tree and its items in both combos; the name lists are the caller's.
    void addUnit(const std::string& disco, int picture, const QString& key);
    void writeCounters();

  private:
    void agregarcombos(engine::Database& database);
    void setColumns();

    Surface& m_surface;
    OpeningHost& m_host;
};

}  // namespace browse
