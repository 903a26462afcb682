#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "core/language.h"
#include "scan/left_out.h"
#include "scan/walk_observer.h"

namespace cli {

// Shows a scan's counts on the standard error while it runs, if that is a terminal, and stops it on Ctrl-C.
// Remembers what the scan left out.
class ScanProgress : public scan::WalkObserver {
  public:
    explicit ScanProgress(core::Language language);

    void started(std::int64_t) override {}
    void status(const scan::Counts& counts) override;
    void topLevelDone() override {}
    [[nodiscard]] bool yield(scan::RowSink&) override;  // runs nothing, so it commits nothing
    void gap(scan::Gap gap, std::string_view drivePath) override { m_leftOut.add(gap, drivePath); }
    void finish(const scan::Counts& counts);

    // One line on the standard error for all that the walk left out, if anything.
    void tellLeftOut() const;
    [[nodiscard]] std::vector<std::string> takeUnread() { return m_leftOut.takeUnread(); }

  private:
    core::Language m_language;
    bool m_onTerminal;
    std::chrono::steady_clock::time_point m_nextShow{};
    scan::LeftOut m_leftOut;
};

}  // namespace cli
