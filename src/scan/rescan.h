#pragma once

#include <expected>
#include <functional>
#include <string>

#include "core/language.h"
#include "engine/database.h"
#include "platform/drives.h"
#include "scan/unit_changes.h"
#include "scan/walk_observer.h"
#include "scan/walker.h"

namespace scan {

// Reading the medium of a unit again.

struct RescanRequest {
    std::string disco;      // case does not count
    std::string directory;  // native; empty: where it was scanned, on whichever drive it is now
    Exclusion exclusion{};
};

// Why a unit is not read again. Nothing has been changed then.
struct RescanFailure {
    enum class Kind { Refused, NotFound, Stopped, Catalogue };
    Kind kind;
    core::Bilingual reason{};  // but for a failure of the catalogue
    engine::Error error{};
};
template <class T = void>
using Rescanned = std::expected<T, RescanFailure>;

// The unit's rows as they stand. Refuses what no scan has made: a hand-made unit, rows that do not lie under
// one folder, two units whose names differ in case only.
[[nodiscard]] Rescanned<UnitRows> storedUnit(engine::Database& database, const std::string& disco);

// Walks the medium; the catalogue is not needed for as long as that takes. An empty folder is refused: it is
// where the medium would be.
[[nodiscard]] Rescanned<FoundUnit> readMedium(const UnitRows& stored, const RescanRequest& request,
                                              const platform::Drives& drives, WalkObserver& observer);

// Both, and what differs.
[[nodiscard]] Rescanned<UnitChanges> compareUnit(engine::Database& database, const RescanRequest& request,
                                                 const platform::Drives& drives, WalkObserver& observer);

// The same, and puts the new rows in the place of the old ones, in one transaction: whatever ends it early
// leaves the unit as it was. `stopped` is asked while rows are written.
[[nodiscard]] Rescanned<UnitChanges> updateUnit(engine::Database& database, const RescanRequest& request,
                                                const platform::Drives& drives, WalkObserver& observer,
                                                const std::function<bool()>& stopped);

}  // namespace scan
