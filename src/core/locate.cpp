#include "core/locate.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include "core/text.h"
#include "platform/files.h"
#include "platform/names.h"

namespace core {
namespace {

constexpr std::array restoredFirst{
    Candidate{Spelling::Restored, Spelling::Restored}, Candidate{Spelling::Stored, Spelling::Restored},
    Candidate{Spelling::Restored, Spelling::Stored}, Candidate{Spelling::Stored, Spelling::Stored}};

// The entry of a folder, both in drive form, that has this name but for its apostrophes; of several the
// first.
std::optional<std::string> entryNamed(const platform::Drives& drives, const std::string& folder,
                                      std::string_view name) {
    const auto native = drives.toNativePath(folder);
    if (!native || !name.contains("´")) return std::nullopt;
    std::optional<std::string> first;
    std::error_code failed;
    for (std::filesystem::directory_iterator entry(*native, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        std::string stored = platform::toStoredName(entry->path().filename().native());
        if (withoutApostrophes(stored) == name && (!first || stored < *first)) first = std::move(stored);
    }
    return first;
}

// Where some of the accents were apostrophes and others were not, no candidate is it: each name that does not
// stand there as stored is looked for in its folder.
std::optional<FoundFile> findName(const platform::Drives& drives, std::string_view base,
                                  std::string_view name) {
    const std::size_t drive = base.find('\\');
    if (drive == base.npos || !drives.answers(base.substr(0, 2))) return std::nullopt;
    std::string folder(base.substr(0, drive)), found;
    for (std::string_view rest = base.substr(drive + 1); !rest.empty();) {
        const std::size_t end = std::min(rest.find('\\'), rest.size());
        std::string path = joinPath(folder, rest.substr(0, end));
        if (const auto native = drives.toNativePath(path); !native || !platform::FolderExists(*native)) {
            const auto entry = entryNamed(drives, folder, rest.substr(0, end));
            if (!entry) return std::nullopt;
            path = joinPath(folder, *entry);
        }
        folder = std::move(path);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    constexpr std::array asStored{Candidate{Spelling::Stored, Spelling::Stored}};
    if (auto file = findFile(drives, folder, name, asStored)) return file;
    const auto entry = entryNamed(drives, folder, name);
    return entry ? findFile(drives, folder, *entry, asStored) : std::nullopt;
}

std::optional<FoundFile> findNameAnywhere(const platform::Drives& drives, const CataloguedFile& file) {
    auto found = findName(drives, file.ruta, file.name);
    if (found || isOnFixedDisk(drives, file) || file.letraunidad().empty()) return found;
    for (const platform::Drive& drive : drives.list())
        if (auto elsewhere = findName(drives, file.rutaotraunidad(drive.name()), file.name)) return elsewhere;
    return std::nullopt;
}

std::optional<FoundFile> findSpelled(const platform::Drives& drives, const CataloguedFile& file,
                                     Spelling first) {
    if (first == Spelling::Restored) {
        auto found = findFile(drives, file.ruta, file.name, restoredFirst);
        if (found || isOnFixedDisk(drives, file)) return found;
        return scanDrives(drives, file, restoredFirst);
    }
    auto found = findWhereScanned(drives, file);
    if (!found && !isOnFixedDisk(drives, file)) found = scanDrives(drives, file, scanCandidates);
    return found;
}

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
    auto found = findSpelled(drives, file, first);
    return found ? found : findNameAnywhere(drives, file);
}

std::string destinationIn(const std::string& nativeFolder, std::string_view catalogueName) {
    return nativeFolder + "/" + platform::toDiskName(catalogueName);
}

}  // namespace core
