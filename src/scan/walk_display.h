#pragma once

#include <chrono>

#include "frame/frame.h"
#include "scan/left_out.h"
#include "scan/walk_observer.h"

namespace scan {

// Shows a walk in the status band, twenty times a second at most, and lets the event queue run where the walk
// gives way. What the walk has written is
// committed before anything but painting gets its turn.
class WalkDisplay : public WalkObserver {
  public:
    // `stop` is the flag that a handler may raise during a yield.
    WalkDisplay(frame::Frame& frame, const bool& stop) : m_frame(frame), m_stop(stop) {}

    void started(std::int64_t topLevelFolders) override;
    void status(const Counts& counts) override;
    void topLevelDone() override;
    void gap(Gap gap, std::string_view drivePath) override { m_leftOut.add(gap, drivePath); }
    [[nodiscard]] bool yield(RowSink& rows) override;

    [[nodiscard]] const LeftOut& leftOut() const { return m_leftOut; }

    void paint();  // while the walk waits for the catalogue

  private:
    frame::Frame& m_frame;
    const bool& m_stop;
    bool m_painting = false;
    LeftOut m_leftOut;
    int m_topLevelFolders = 1;
    int m_topLevelDone = 0;
    std::chrono::steady_clock::time_point m_nextShow{};
};

}  // namespace scan
