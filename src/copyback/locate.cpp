#include "copyback/locate.h"

#include <array>

#include "platform/names.h"

namespace copyback {
namespace {

using core::Spelling;

constexpr std::array restoredFirst{core::Candidate{Spelling::Restored, Spelling::Restored},
                                   core::Candidate{Spelling::Stored, Spelling::Restored},
                                   core::Candidate{Spelling::Restored, Spelling::Stored},
                                   core::Candidate{Spelling::Stored, Spelling::Stored}};

}  // namespace

bool isOnFixedDisk(const platform::Drives& drives, const core::CataloguedFile& file) {
    return drives.type(file.letraunidad()) == platform::DriveType::Fixed;
}

std::optional<core::FoundFile> findWhereScanned(const platform::Drives& drives,
                                                const core::CataloguedFile& file) {
    const bool allSpellings = isOnFixedDisk(drives, file) || file.liesInRoot();
    return core::findFile(
        drives, file.ruta, file.name,
        allSpellings ? std::span<const core::Candidate>(core::copyCandidates) : scanCandidates);
}

std::optional<core::FoundFile> locate(const platform::Drives& drives, const core::CataloguedFile& file,
                                      core::Spelling first) {
    if (first == core::Spelling::Restored) {
        const auto found = core::findFile(drives, file.ruta, file.name, restoredFirst);
        if (found || isOnFixedDisk(drives, file)) return found;
        return core::scanDrives(drives, file, restoredFirst);
    }
    auto found = findWhereScanned(drives, file);
    if (!found && !isOnFixedDisk(drives, file)) found = core::scanDrives(drives, file, scanCandidates);
    return found;
}

std::string destinationIn(const std::string& nativeFolder, std::string_view catalogueName) {
    return nativeFolder + "/" + platform::toDiskName(catalogueName);
}

}  // namespace copyback
