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

// Where some of the accents were apostrophes and others were not, no candidate is it: the names on the disk
// are.
std::optional<FoundFile> findName(const platform::Drives& drives, std::string_view base,
                                  std::string_view name) {
    const auto path = asOnDisk(drives, joinPath(base, name));
    if (!path) return std::nullopt;
    constexpr std::array asStored{Candidate{Spelling::Stored, Spelling::Stored}};
    return findFile(drives, path->substr(0, path->rfind('\\')), lastComponent(*path), asStored);
}

std::optional<FoundFile> findNameAnywhere(const platform::Drives& drives, const CataloguedFile& file) {
    if (!file.ruta.contains("´") && !file.name.contains("´")) return std::nullopt;
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

// Each name that does not stand there as stored is looked for in its folder.
std::optional<std::string> asOnDisk(const platform::Drives& drives, std::string_view path) {
    const std::size_t drive = path.find('\\');
    if (drive == path.npos || !drives.answers(path.substr(0, 2))) return std::nullopt;
    std::string found(path.substr(0, drive));
    for (std::string_view rest = path.substr(drive + 1); !rest.empty();) {
        const std::string_view name = rest.substr(0, rest.find('\\'));
        const bool isLast = name.size() == rest.size();
        std::string next = joinPath(found, name);
        const auto native = drives.toNativePath(next);
        if (!native || !(platform::FolderExists(*native) || (isLast && platform::FileExists(*native)))) {
            const auto entry = entryNamed(drives, found, name);
            if (!entry) return std::nullopt;
            next = joinPath(found, *entry);
        }
        found = std::move(next);
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    }
    return found;
}

std::string destinationIn(const std::string& nativeFolder, std::string_view catalogueName) {
    return nativeFolder + "/" + platform::toDiskName(catalogueName);
}

}  // namespace core
