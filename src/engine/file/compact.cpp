#include <sqlite3.h>
#include <unistd.h>

#include "engine/file/connection.h"
#include "engine/file/file_header.h"
#include "engine/file/prepared.h"
#include "engine/file/replacement.h"
#include "engine/file/sqlite_error.h"
#include "engine/maintenance.h"

namespace engine {

namespace {

Result<> refuseOpenFile(const std::string& path) {
    if (platform::HeldFile::isHeld(path)) return std::unexpected(Error{error::locked, path + " is open"});
    return {};
}

Result<> vacuumInto(const std::string& source, const std::string& path) {
    auto database = openSqlite(source, SQLITE_OPEN_READWRITE);
    if (!database) return std::unexpected(database.error());
    StatementPool pool(database->get());
    auto vacuum = pool.lend("vacuum into ?");
    if (!vacuum) return std::unexpected(vacuum.error());
    const std::string target = path.starts_with('/') ? path : "./" + path;
    vacuum->bind(0, std::string_view(target));
    if (vacuum->step() == Prepared::Step::Failed) return std::unexpected(lastError(database->get()));
    return {};
}

Result<> writeCompacted(const std::string& source, const std::string& destination) {
    if (auto sound = checkCatalogueFile(source); !sound) return sound;
    auto compacted = replacementFor(destination);
    if (!compacted) return std::unexpected(compacted.error());
    if (auto written = vacuumInto(source, compacted->path()); !written) return written;
    return putInPlace(*compacted, source);
}

}  // namespace

Result<> CompactDatabase(const std::string& source, const std::string& destination) {
    if (auto free = refuseOpenFile(source); !free) {
        if (platform::identityOf(source) != platform::identityOf(destination)) ::unlink(destination.c_str());
        return free;
    }
    if (const auto file = platform::identityOf(source); file && file == platform::identityOf(destination)) {
        return std::unexpected(Error{error::fileExists, "A catalogue cannot be compacted into itself"});
    }
    if (auto free = refuseOpenFile(destination); !free) return free;
    auto written = writeCompacted(source, destination);
    if (!written) ::unlink(destination.c_str());
    return written;
}

}  // namespace engine
