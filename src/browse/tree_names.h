#pragma once

#include "browse/node_names.h"
#include "controls/tree_view.h"

namespace browse {

// The names that place a node of the tree.
[[nodiscard]] NodeNames namesOf(const controls::TreeModel& nodes, controls::Node node);

}  // namespace browse
