#include <sqlite3.h>

#include "platform/jet/connection.h"
#include "platform/jet/maintenance.h"

namespace jet {

namespace {

bool isSound(const std::string& path) {
    auto connection = Connection::open(path, Use::Catalogue);
    if (!connection) return false;
    auto check = (*connection)->prepare("pragma integrity_check(1)");
    return check && check->step() == Prepared::Step::Row && check->text(0) == "ok";
}

}  // namespace

Result<> RepairDatabase(const std::string& nativePath) {
    if (isSound(nativePath)) return {};
    return std::unexpected(Error{error::corrupt, nativePath + " is damaged"});
}

}  // namespace jet
