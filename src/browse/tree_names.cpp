#include "browse/tree_names.h"

namespace browse {

NodeNames namesOf(const controls::TreeModel& nodes, controls::Node node) {
    NodeNames names{nodes.text(node).toStdString(), {}, nodes.fullPath(node).toStdString()};
    for (auto above = nodes.parentOf(node); above != controls::noNode; above = nodes.parentOf(above))
        names.ancestors.push_back(nodes.text(above).toStdString());
    return names;
}

}  // namespace browse
