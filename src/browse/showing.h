#pragma once

#include "browse/listing.h"
#include "browse/node_names.h"
#include "browse/surface.h"
#include "browse/totals.h"

namespace browse {

// What the browsing procedures end with, and the small steps that several of them share.

// The names that place a node of the tree.
[[nodiscard]] NodeNames namesOf(const controls::TreeModel& nodes, controls::Node node);

// Puts the path item behind the units of ImageCombo1, in place of an earlier one, and selects it.
void showPathItem(Surface& surface, const std::string& fullPath);
void dropPathItem(Surface& surface);

// The status band says why the catalogue could not be read, in place of what was to be shown. Of a statement
// that the engine refuses for its words it says nothing.
void showFailure(Surface& surface, const engine::Error& error);

// Empties ListView1 and fills it with a listing. Where not all of it can be read the list stays empty, the
// status band says why, and the result is false.
[[nodiscard]] bool fillList(Surface& surface, engine::Database& database, const ListingStatements& listing,
                            bool lowerCaseKeys = false);

// `cantidadytamaños`: the summary of the folder that ImageCombo1 shows, written to Label3, Text9 and
// Picture16.
void cantidadytamaños(Surface& surface, engine::Database& database);

// In place of totals that could not be read stands why, here as above.
void showUnitTotals(Surface& surface, const std::string& disco, const engine::Result<Totals>& totals);

// The tree menu's `abrirnodo` says what it would do to the node.
void captionOpenNode(Surface& surface, Node node);

// Picture16 takes the combo's image, Label2 the unit's kind.
void showPicture(Surface& surface);
void showKind(Surface& surface);

}  // namespace browse
