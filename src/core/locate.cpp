#include "core/locate.h"

#include <array>

#include "platform/names.h"

namespace core {
namespace {

constexpr std::array restoredFirst{
    Candidate{Spelling::Restored, Spelling::Restored}, Candidate{Spelling::Stored, Spelling::Restored},
    Candidate{Spelling::Restored, Spelling::Stored}, Candidate{Spelling::Stored, Spelling::Stored}};

}  // namespace

bool isOnFixedDisk(const platform::Drives& drives, const CataloguedFile& file) {
    return drives.type(file.letraunidad()) == platform::DriveType::Fixed;
}

std::optional<FoundFile> findWhereScanned(const platform::Drives& drives, const CataloguedFile& file) {
    const bool allSpellings = isOnFixedDisk(drives, file) || file.liesInRoot();
    return findFile(drives, file.ruta, file.name,
                    allSpellings ? std::span<const Candidate>(copyCandidates) : scanCandidates);
}

std::optional<FoundFile> locate(const platform::Drives& drives, const CataloguedFile& file, Spelling first) {
    if (first == Spelling::Restored) {
        auto found = findFile(drives, file.ruta, file.name, restoredFirst);
        if (found || isOnFixedDisk(drives, file)) return found;
        return scanDrives(drives, file, restoredFirst);
    }
    auto found = findWhereScanned(drives, file);
    if (!found && !isOnFixedDisk(drives, file)) found = scanDrives(drives, file, scanCandidates);
    return found;
}

std::string destinationIn(const std::string& nativeFolder, std::string_view catalogueName) {
    return nativeFolder + "/" + platform::toDiskName(catalogueName);
}

}  // namespace core
