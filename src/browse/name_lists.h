#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace browse {

// `listanivel1` to `listanivel12`: the names of all units and, for each depth, of the folders put into the
// tree, as texts. What a node is (a unit, or a folder of which depth) is rebuilt from its name and its
// ancestors' names alone, by looking for them in these texts: a name that repeats at several depths may give
// a depth too low, and a folder that bears a unit's name counts as the unit.
class NameLists {
  public:
    static constexpr int deepestListed = 11;

    void blank();
    void addUnit(std::string_view disco);
    void removeUnit(std::string_view disco);  // its name only: a renamed or deleted unit frees it
    // A folder at tree depth `level`, 2 to 12 (the unit's own folders are at depth 2).
    void addFolder(int level, std::string_view disco, std::string_view carpeta);

    [[nodiscard]] bool isUnit(std::string_view text) const;

    // Depth of a node below `disco`, 2 to 11; 0 when no depth holds. `ancestors` from the parent up to the
    // unit.
    [[nodiscard]] int levelOf(std::string_view disco, std::string_view node,
                              std::span<const std::string> ancestors) const;

    [[nodiscard]] const std::string& listanivel(int level) const { return m_lists.at(level); }

  private:
    [[nodiscard]] bool holds(int level, std::string_view name) const;

    std::array<std::string, 13> m_lists;  // [1] to [12]
};

}  // namespace browse
