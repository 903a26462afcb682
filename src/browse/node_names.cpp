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

NodeNames namesOf(const controls::TreeView& tree, controls::Node node) {
    NodeNames names{tree.text(node).toStdString(), {}, tree.fullPath(node).toStdString()};
    for (controls::Node above = tree.parentOf(node); above; above = tree.parentOf(above))
        names.ancestors.push_back(tree.text(above).toStdString());
    return names;
}

}  // namespace browse
