#pragma once

#include <cstdint>

namespace scan {

class RowWriter;

struct Counts {
    std::int64_t folders = 0;
    std::int64_t files = 0;
};

// Who watches a walk. The walk asks nothing for its time: an observer that paints decides how often it does.
class WalkObserver {
  public:
    virtual ~WalkObserver() = default;

    virtual void started(std::int64_t topLevelFolders) = 0;
    virtual void status(
        const Counts& counts) = 0;    // the status line, for every file and every folder below the top
    virtual void topLevelDone() = 0;  // one more folder directly under the chosen one has its row

    // The fixed points at which the walk gives way. Calls rows.commit() before it lets anything run that
    // might look at the catalogue. True ends the walk at once.
    [[nodiscard]] virtual bool yield(RowWriter& rows) = 0;
};

}  // namespace scan
