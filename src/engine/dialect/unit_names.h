#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/dialect/literals.h"
#include "engine/dialect/statement.h"

namespace engine {

// The names of a catalogue's units in all their spellings. A comparison of `disco` takes no notice of case
// and so no index serves it; put as the spellings that meet it, it compares bytes, and the index does.
class UnitNames {
  public:
    void add(const std::string& name);

    // True for a condition that compares `disco` with texts by `=`, `<>`, `in` or `like`.
    [[nodiscard]] static bool decide(const Condition& condition);
    // True when there is one among a condition's parts.
    [[nodiscard]] static bool areAskedBy(const Condition& condition);

    // The spellings that meet such a condition, of `<>` those that do not.
    [[nodiscard]] std::vector<std::string_view> named(const Condition& condition,
                                                      const std::vector<Literal>& literals) const;

  private:
    std::unordered_multimap<std::string, std::string> m_spellings;  // by folded name
};

}  // namespace engine
