#include "browse/name_lists.h"

#include "core/text.h"

namespace browse {
namespace {

constexpr std::string_view fence = " \\\\ ";  // blank, two backslashes, blank

std::string fenced(std::string_view name) {
    return std::string(fence).append(name).append(fence);
}

std::string anywhere(std::string_view name) {
    return std::string("*").append(fenced(name)).append("*");
}

}  // namespace

void NameLists::blank() {
    for (std::string& list : m_lists) list.clear();
}

void NameLists::addUnit(std::string_view disco) {
    m_lists[1] += fenced(disco);
}

void NameLists::removeUnit(std::string_view disco) {
    const std::string entry = fenced(disco);
    if (const std::size_t at = m_lists[1].find(entry); at != std::string::npos)
        m_lists[1].erase(at, entry.size());
}

void NameLists::addFolder(int level, std::string_view disco, std::string_view carpeta) {
    m_lists.at(level).append(fenced(disco)).append(carpeta).append(fence);
}

bool NameLists::holds(int level, std::string_view pattern) const {
    return core::like(m_lists[level], pattern);
}

bool NameLists::isUnit(std::string_view text) const {
    return holds(1, anywhere(text));
}

int NameLists::levelOf(std::string_view disco, std::string_view node,
                       std::span<const std::string> ancestors) const {
    const auto ancestorsHold = [&](int level) {
        for (int k = 1; k < level; ++k)
            if (!holds(level - k, anywhere(ancestors[k - 1]))) return false;
        return true;
    };
    for (int level = 2; level <= deepestListed && level - 1 <= static_cast<int>(ancestors.size()); ++level) {
        // From depth 3 on the name may stand anywhere behind the unit.
        std::string pattern("*");
        pattern.append(fenced(disco)).append(level == 2 ? "" : "*").append(node).append(fence).append("*");
        if (holds(level, pattern) && ancestorsHold(level)) return level;
    }
    return 0;
}

}  // namespace browse
