#pragma once

#include "browse/properties.h"
#include "browse/surface.h"
#include "stats/statistics_action.h"

namespace shell {

// Where the user is, as other rooms ask for it.
[[nodiscard]] stats::Selection selectionOf(const browse::Surface& surface);

// Of a node of the tree.
[[nodiscard]] browse::PropertiesRequest propertiesRequest(const browse::Surface& surface, browse::Node node);

}  // namespace shell
