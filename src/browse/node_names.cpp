#include "browse/node_names.h"

namespace browse {

std::string NodeNames::unit() const {
    return fullPath.substr(0, fullPath.find('\\'));
}

std::vector<std::string> NodeNames::chain(int level) const {
    std::vector<std::string> names;
    for (int k = level - 2; k >= 1; --k) names.push_back(ancestors.at(k - 1));
    return names;
}

NodeNames namesOf(const controls::TreeModel& nodes, controls::Node node) {
    NodeNames names{nodes.text(node).toStdString(), {}, nodes.fullPath(node).toStdString()};
    for (auto above = nodes.parentOf(node); above != controls::noNode; above = nodes.parentOf(above))
        names.ancestors.push_back(nodes.text(above).toStdString());
    return names;
}

}  // namespace browse
