#include "browse/name_lists.h"

namespace browse {
namespace {

constexpr std::string_view fence = " \\\\ ";  // blank, two backslashes, blank

std::string fenced(std::string_view name) {
    return std::string(fence).append(name).append(fence);
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

// Names stand for themselves here, also one that could be read as a pattern.
bool NameLists::holds(int level, std::string_view name) const {
    return m_lists[level].contains(fenced(name));
}

bool NameLists::isUnit(std::string_view text) const {
    return holds(1, text);
}

int NameLists::levelOf(std::string_view disco, std::string_view node,
                       std::span<const std::string> ancestors) const {
    const auto ancestorsHold = [&](int level) {
        for (int k = 1; k < level; ++k)
            if (!holds(level - k, ancestors[k - 1])) return false;
        return true;
    };
    const std::string unit = fenced(disco);
    const std::string name = std::string(node).append(fence);
    for (int level = 2; level <= deepestListed && level - 1 <= static_cast<int>(ancestors.size()); ++level) {
        // From depth 3 on the name may stand anywhere behind the unit.
        const std::string& list = m_lists[level];
        const std::size_t at = level == 2 ? list.find(unit + name) : list.find(unit);
        const bool found = at != list.npos && list.find(name, at + unit.size()) != list.npos;
        if (found && ancestorsHold(level)) return level;
    }
    return 0;
}

}  // namespace browse
