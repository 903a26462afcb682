#pragma once

#include <cstdint>
#include <string_view>

#include "scan/row_sink.h"

namespace scan {

struct Counts {
    std::int64_t folders = 0;
    std::int64_t files = 0;
};

// What a walk could not tell, or does not.
enum class Gap {
    Content,  // a folder could not be read, or not to its end
    Kernel,   // a folder in which a file system of the kernel begins, which is not looked into
    Depth,    // a folder at the last level, which is not looked into
    Facts,    // the item whose row was made last may not be looked at: its date and length read 0
};

// Who watches a walk. The walk asks nothing for its time: an observer that paints decides how often it does.
class WalkObserver {
  public:
    virtual ~WalkObserver() = default;

    virtual void started(std::int64_t topLevelFolders) = 0;
    virtual void status(
        const Counts& counts) = 0;    // the status line, for every file and every folder below the top
    virtual void topLevelDone() = 0;  // one more folder directly under the chosen one has its row

    // `drivePath` is that of the folder or item, as its row spells it; the folder's row has been made.
    virtual void gap(Gap, std::string_view /*drivePath*/) {}

    // The fixed points at which the walk gives way. Calls rows.commit() before it lets anything run that
    // might look at the catalogue. True ends the walk at once.
    [[nodiscard]] virtual bool yield(RowSink& rows) = 0;
};

}  // namespace scan
