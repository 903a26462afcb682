#pragma once

#include <optional>
#include <span>

#include "core/medium.h"

namespace core {

// Where a file that is to be copied back is looked for. A fixed disk is never searched for in another drive.
[[nodiscard]] bool isOnFixedDisk(const platform::Drives& drives, const CataloguedFile& file);

// At the path that was recorded when its unit was scanned.
[[nodiscard]] std::optional<FoundFile> findWhereScanned(const platform::Drives& drives,
                                                        const CataloguedFile& file);

// The spellings tried in the other drives.
inline constexpr std::span<const Candidate> scanCandidates{copyCandidates.data(), 3};

// Both places, without asking for the medium. Where a disk has both spellings of a name, `first` tells which
// is meant; a path with accents of either kind is found by the names in its folders.
[[nodiscard]] std::optional<FoundFile> locate(const platform::Drives& drives, const CataloguedFile& file,
                                              Spelling first);

// The path of a file or folder under the names that it and its folders have on the disk, both in drive form.
// Nothing when it is not there.
[[nodiscard]] std::optional<std::string> asOnDisk(const platform::Drives& drives, std::string_view path);

// The name that a copy bears on the disk.
[[nodiscard]] std::string destinationIn(const std::string& nativeFolder, std::string_view catalogueName);

}  // namespace core
