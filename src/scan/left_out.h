#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/language.h"
#include "scan/walk_observer.h"

namespace scan {

// Remembers what a walk left out, and puts it into words.
class LeftOut {
  public:
    void add(Gap gap, std::string_view drivePath);

    // The folders that could not be read, in drive form, for a caller that tells of each; the texts leave
    // them out from then on.
    [[nodiscard]] std::vector<std::string> takeUnread() { return std::exchange(m_unread, {}); }

    // What failed: "2 folders that could not be read (E:\a, ...), the date and size of 1 item"; or nothing.
    [[nodiscard]] std::string failedText(core::Language language) const;
    // That and what a walk never looks into: folders of the kernel and at the depth limit.
    [[nodiscard]] std::string text(core::Language language) const;

  private:
    std::vector<std::string> m_unread;
    std::vector<std::string> m_kernel;
    std::int64_t m_tooDeep = 0;
    std::int64_t m_withoutFacts = 0;
};

}  // namespace scan
