#pragma once

#include <chrono>

#include "core/language.h"
#include "scan/walk_observer.h"

namespace cli {

// Shows a scan's counts on the standard error while it runs, if that is a terminal, and stops it on Ctrl-C.
class ScanProgress : public scan::WalkObserver {
  public:
    explicit ScanProgress(core::Language language);

    void started(std::int64_t) override {}
    void status(const scan::Counts& counts) override;
    void topLevelDone() override {}
    [[nodiscard]] bool yield(scan::RowWriter&) override;  // runs nothing, so it commits nothing
    void finish(const scan::Counts& counts);

  private:
    core::Language m_language;
    bool m_onTerminal;
    std::chrono::steady_clock::time_point m_nextShow{};
};

}  // namespace cli
