#pragma once

#include <functional>
#include <span>

#include "browse/surface.h"
#include "core/units.h"
#include "engine/database.h"

namespace browse {

// What the rest of the window hears of a catalogue that is being opened.
struct OpeningEvents {
    std::function<void()> begins;         // every panel goes back to how it starts
    std::function<void()> totalsCounted;  // text in the status band may need another room
    std::function<void(std::span<const core::UnitItem> units)> unitsListed;  // all there are, in their order
    std::function<void(const core::UnitItem& unit)> unitAdded;
};

// Prepares the browse surface for a freshly opened catalogue: one root per unit, combos, columns and totals.
// The tree must have been cleared before.
class Opening {
  public:
    Opening(Surface& surface, OpeningEvents events) : m_surface(surface), m_events(std::move(events)) {}

    // Gives way to the event queue. If another catalogue is opened meanwhile, or this one closed, that
    // stands.
    void inicio();
    void abandon() { ++m_openings; }  // an opening that gives way just now goes no further
    void agregarcombo3();             // lists the units anew, after one was renamed
    void actualizar();                // the global counters and the geometry; neither tree nor list

    // A unit that has just been made: its root in the tree and its items in the combos, the path combo's
    // selected.
    void addUnit(const core::UnitItem& unit);
    void writeCounters();

  private:
    [[nodiscard]] engine::Result<> agregarcombos(engine::Database& database);
    void count(engine::Database& database);
    void showUnit(const core::UnitItem& unit);
    void setColumns();

    Surface& m_surface;
    OpeningEvents m_events;
    int m_openings = 0;
};

}  // namespace browse
