#include "scan/unit_medium.h"

#include <set>
#include <utility>

#include "core/medium.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/names.h"
#include "scan/folder.h"

namespace scan {
namespace {

// A folder's name and kind (true: a file), as rows spell them.
using TopLevel = std::set<std::pair<std::string, bool>>;

TopLevel topLevelOf(const UnitRows& unit) {
    TopLevel names;
    for (const UnitRows::Row& row : unit.rows())
        if (unit.folder(row).empty()) names.emplace(unit.name(row), row.isFile);
    return names;
}

bool holdsHalfOf(const TopLevel& expected, const std::string& nativePath) {
    Listing listing;
    if (!Folder::at(nativePath).readAll(listing)) return false;
    TopLevel met;
    const auto meet = [&](const Listing::Entry& entry, bool isFile) {
        const std::pair item(core::withoutApostrophes(platform::toStoredName(listing.name(entry))), isFile);
        if (expected.contains(item)) met.insert(item);
    };
    for (const Listing::Entry& entry : listing.folders()) meet(entry, false);
    for (const Listing::Entry& entry : listing.files()) meet(entry, true);
    return !met.empty() && met.size() * 2 >= expected.size();
}

// Continues the drive path `there`, which exists, by the components of `rest` in either spelling.
std::optional<std::string> descend(const platform::Drives& drives, const std::string& there,
                                   std::string_view rest) {
    while (rest.starts_with('\\')) rest.remove_prefix(1);
    auto native = drives.toNativePath(there);
    if (!native || !platform::FolderExists(*native)) return std::nullopt;
    if (rest.empty()) return native;
    const std::string_view component = rest.substr(0, rest.find('\\'));
    const std::string_view below = rest.substr(component.size());
    const std::string restored = core::spelled(component, core::Spelling::Restored);
    if (auto found = descend(drives, core::joinPath(there, component), below)) return found;
    if (restored == component) return std::nullopt;
    return descend(drives, core::joinPath(there, restored), below);
}

}  // namespace

std::optional<std::string> nativeFolder(const platform::Drives& drives, const std::string& drivePath) {
    const std::size_t backslash = drivePath.find('\\');
    if (backslash == std::string::npos) return std::nullopt;
    return descend(drives, drivePath.substr(0, backslash + 1), std::string_view(drivePath).substr(backslash));
}

std::optional<std::string> findMedium(const UnitRows& unit, const platform::Drives& drives) {
    const TopLevel expected = topLevelOf(unit);
    const core::CataloguedFile base{unit.base(), {}};
    const auto lookOn = [&](std::string_view drive) {
        auto folder = nativeFolder(drives, base.rutaotraunidad(drive));
        if (folder && !holdsHalfOf(expected, *folder)) folder.reset();
        return folder;
    };
    if (base.letraunidad().empty()) return std::nullopt;
    if (auto folder = lookOn(base.letraunidad())) return folder;
    for (const platform::Drive& drive : drives.list())
        if (auto folder = lookOn(drive.name())) return folder;
    return std::nullopt;
}

}  // namespace scan
