#include "scan/scan_request.h"

#include "core/inserts.h"
#include "core/unit_name.h"

namespace scan {
namespace {

std::string withoutTrailingSlashes(std::string path) {
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path;
}

}  // namespace

engine::Result<bool> unitExists(engine::Database& database, const std::string& name) {
    const auto rows = TRY(database.OpenRecordset(core::selectUnitNamed(name)));
    const bool exists = !rows.Eof();
    if (rows.error()) return std::unexpected(*rows.error());
    return exists;
}

engine::Result<> canWrite(engine::Database& database) {
    engine::Transaction tried(database);
    return tried.begin();
}

engine::Result<std::int64_t> lastNumero(engine::Database& database) {
    auto rows = TRY(database.OpenRecordset("select * from datos order by numero"));
    const std::int64_t count = rows.RecordCount();
    if (rows.error()) return std::unexpected(*rows.error());
    return count;
}

const UnitRefusal* refusalOf(const ScanRequest& request) {
    if (request.name.empty()) return &refusal::scanWithoutName;
    if (request.directory.empty()) return &refusal::scanWithoutDirectory;
    return nullptr;
}

engine::Result<const UnitRefusal*> refusalOf(const ScanRequest& request, engine::Database& database) {
    if (const UnitRefusal* incomplete = refusalOf(request)) return incomplete;
    const auto taken = TRY(unitExists(database, request.name));
    return taken ? &refusal::scanNameTaken : nullptr;
}

WalkStart walkStart(const ScanRequest& request, const platform::Drives& drives) {
    WalkStart start;
    start.nativePath = request.directory;
    start.drivePath = drives.toDrivePath(withoutTrailingSlashes(request.directory));
    start.disco = core::discoOf(request.name);
    start.exclusion = request.exclusion;
    return start;
}

engine::Result<WalkStart> walkStart(const ScanRequest& request, engine::Database& database,
                                    const platform::Drives& drives) {
    const auto last = TRY(lastNumero(database));
    WalkStart start = walkStart(request, drives);
    start.lastNumero = last;
    return start;
}

}  // namespace scan
