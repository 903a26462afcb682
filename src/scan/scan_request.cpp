#include "scan/scan_request.h"

#include "core/inserts.h"
#include "core/unit_kinds.h"

namespace scan {
namespace {

std::string withoutTrailingSlashes(std::string path) {
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path;
}

}  // namespace

bool unitExists(engine::Database& database, const std::string& name) {
    const auto rows = database.OpenRecordset(core::selectUnitNamed(name));
    return rows && !rows->Eof();
}

std::int64_t lastNumero(engine::Database& database) {
    auto rows = database.OpenRecordset("select * from datos order by numero");
    return rows ? rows->RecordCount() : 0;
}

const Refusal* refusalOf(const ScanRequest& request) {
    if (request.name.empty()) return &refusal::scanWithoutName;
    if (request.directory.empty()) return &refusal::scanWithoutDirectory;
    return nullptr;
}

const Refusal* refusalOf(const ScanRequest& request, engine::Database& database) {
    if (const Refusal* incomplete = refusalOf(request)) return incomplete;
    if (unitExists(database, request.name)) return &refusal::scanNameTaken;
    return nullptr;
}

WalkStart walkStart(const ScanRequest& request, const platform::Drives& drives) {
    WalkStart start;
    start.nativePath = request.directory;
    start.drivePath = drives.toDrivePath(withoutTrailingSlashes(request.directory));
    start.disco = request.name + std::string(core::unitSuffix);
    start.exclusion = request.exclusion;
    return start;
}

WalkStart walkStart(const ScanRequest& request, engine::Database& database, const platform::Drives& drives) {
    WalkStart start = walkStart(request, drives);
    start.lastNumero = lastNumero(database);
    return start;
}

}  // namespace scan
