#include "copyback/copies.h"

#include <filesystem>
#include <system_error>

#include "core/literals.h"
#include "core/locate.h"
#include "core/text.h"
#include "platform/names.h"

namespace copyback {
namespace {

namespace fs = std::filesystem;

// The last `count` names of a path in drive form, joined as native ones. Paths that were found hold no "..".
std::string lastFolders(std::string_view base, std::size_t count) {
    std::string path;
    for (; count > 0 && !base.empty(); --count) {
        path.insert(0, '/' + platform::toDiskName(core::lastComponent(base)));
        const std::size_t at = base.rfind('\\');
        base = base.substr(0, at == base.npos ? 0 : at);
    }
    return path;
}

}  // namespace

engine::Result<std::vector<CopyItem>> itemsOf(engine::Database& database, const core::FoundRow& place) {
    if (place.kind == core::FoundRow::File)
        return std::vector{CopyItem{
            place.row, 0, place.withApostrophes ? core::Spelling::Restored : core::Spelling::Stored}};
    const bool isUnit = place.kind == core::FoundRow::Unit;
    std::string select = "select * from datos where disco=(" + core::literal(place.row.disco) + ")";
    if (!isUnit) select += " and ruta like (" + core::literal(core::asPattern(place.row.ruta) + "*") + ")";
    auto rows = TRY(database.OpenRecordset(select));

    const std::size_t above = isUnit ? 0 : place.folders.size() - 1;
    std::vector<CopyItem> items;
    for (; !rows.Eof(); rows.MoveNext()) {
        core::CatalogRow row = core::readRow(rows);
        const bool isBelow = row.ruta == place.row.ruta || row.ruta.starts_with(place.row.ruta + '\\');
        if (row.disco != place.row.disco || !(isUnit || isBelow)) continue;
        const std::size_t names = core::namesBelowUnit(row).size() - (row.archivo ? 1 : 0);
        items.push_back({std::move(row), names - std::min(above, names)});
    }
    if (rows.error()) return std::unexpected(*rows.error());
    return items;
}

Copies::Copies(platform::Drives drives, std::string destination, Existing existing)
    : m_drives(std::move(drives)), m_destination(std::move(destination)), m_existing(existing) {}

Copies::End Copies::copy(const CopyItem& item) {
    return item.row.archivo ? copyFile(item) : makeFolder(item);
}

// Two names that differ in an apostrophe only have the same row twice: the second is the other spelling.
std::optional<core::FoundFile> Copies::locateAnew(const CopyItem& item) const {
    const core::CataloguedFile file{item.row.ruta, *item.row.archivo};
    auto found = core::locate(m_drives, file, item.first);
    if (!found || !m_sources.contains(found->path)) return found;
    const auto other =
        item.first == core::Spelling::Stored ? core::Spelling::Restored : core::Spelling::Stored;
    auto twin = core::locate(m_drives, file, other);
    return twin && !m_sources.contains(twin->path) ? twin : found;
}

Copies::End Copies::copyFile(const CopyItem& item) {
    const auto found = locateAnew(item);
    if (!found) return End::NoMedium;
    const auto folder = folderFor(found->base, item.folders);
    if (!folder) return End::Failed;
    const std::string target = core::destinationIn(*folder, found->name);
    if (const auto there = platform::identityOf(target); there && m_written.contains(*there)) {
        if (m_written[*there] == found->path) return End::Done;  // the same row twice
        return failed(target + ": another file of this name was just copied");
    }
    std::error_code ignored;
    if (m_existing == Existing::Leave && fs::exists(fs::symlink_status(target, ignored))) return End::Done;
    if (const auto copied = platform::CopyFile(found->path, target); !copied)
        return failed(copied.error().text);
    m_sources.insert(found->path);
    if (const auto written = platform::identityOf(target)) m_written[*written] = found->path;
    return End::Done;
}

Copies::End Copies::makeFolder(const CopyItem& item) {
    const core::CataloguedFile file{item.row.ruta, {}};
    std::vector<std::string> places{item.row.ruta};
    if (!core::isOnFixedDisk(m_drives, file) && !file.letraunidad().empty())
        for (const platform::Drive& drive : m_drives.list())
            places.push_back(file.rutaotraunidad(drive.name()));
    std::error_code ignored;
    for (const std::string& place : places) {
        const auto mixed = core::asOnDisk(m_drives, place);
        for (const std::string& base : {place, core::withApostrophes(place), mixed.value_or(place)}) {
            const auto native = m_drives.toNativePath(base);
            if (!native || !fs::is_directory(fs::symlink_status(*native, ignored))) continue;
            return folderFor(base, item.folders) ? End::Done : End::Failed;
        }
    }
    return End::Done;  // its files tell that the medium is not there
}

std::optional<std::string> Copies::folderFor(std::string_view base, std::size_t folders) {
    std::string folder = m_destination + lastFolders(base, folders);
    std::error_code error;
    fs::create_directories(folder, error);
    if (!error || platform::FolderExists(folder)) return folder;
    m_failure = folder + ": " + error.message();
    return std::nullopt;
}

Copies::End Copies::failed(std::string text) {
    m_failure = std::move(text);
    return End::Failed;
}

}  // namespace copyback
