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

NodeNames namesBelow(std::string_view disco, std::span<const std::string> folders) {
    NodeNames names{std::string(disco), {}, std::string(disco)};
    for (const std::string& folder : folders) {
        names.ancestors.insert(names.ancestors.begin(), names.text);
        names.text = folder;
        names.fullPath += '\\' + folder;
    }
    return names;
}

}  // namespace browse
