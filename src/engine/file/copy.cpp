#include <sqlite3.h>

#include "engine/file/connection.h"
#include "engine/file/page_copy.h"
#include "engine/file/replacement.h"
#include "engine/guarded.h"
#include "engine/maintenance.h"

namespace engine {

namespace {

// The catalogue at a name that is to lead to another file, held so that no program changes it meanwhile: the
// way back of a change in its midst would be played into the new file. Nothing when no catalogue is there.
Result<std::shared_ptr<Connection>> heldStill(const std::string& path) {
    auto there = Connection::open(path, Use::Catalogue);
    if (!there) {
        switch (there.error().number) {
            case error::fileNotFound:
            case error::unrecognizedFormat:
            case error::corrupt:
                return nullptr;
            default:
                return there;
        }
    }
    TRY((*there)->run("begin immediate"));
    return there;
}

Result<> writeCopy(sqlite3* from, const std::string& path) {
    const auto to = TRY(openSqlite(path, SQLITE_OPEN_READWRITE));
    // The file is nobody's yet and is flushed as a whole when it is put in place.
    TRY(run(to.get(), "pragma journal_mode = memory; pragma synchronous = off"));
    // So that no change comes between two pages.
    TRY(run(from, "begin; select count(*) from sqlite_schema"));
    (void)TRY(copyPages(from, to.get()));
    return run(from, "commit");
}

}  // namespace

Result<> CopyDatabase(const std::string& source, const std::string& destination) {
    return guarded([&]() -> Result<> {
        const auto from = TRY(Connection::open(source, Use::ReadOnly));
        if (const auto allowed = platform::checkReplaceable(source, destination); !allowed)
            return std::unexpected(Error{error::readOnly, allowed.error().text});
        const auto replaced = TRY(heldStill(destination));
        auto copy = TRY(replacementFor(destination));
        TRY(writeCopy(from->handle(), copy.path()));
        if (!replaced) TRY(forgetInterruptedChange(destination));
        return putInPlace(copy, source);
    });
}

Result<> CopyUnreadable(const std::string& source, const std::string& destination) {
    return guarded([&]() -> Result<> {
        const auto replaced = TRY(heldStill(destination));
        if (!replaced) TRY(forgetInterruptedChange(destination));
        platform::flushFolder(platform::folderOf(destination));  // as putInPlace() does
        if (const auto copied = platform::CopyFile(source, destination); !copied)
            return std::unexpected(errorOf(copied.error()));
        return {};
    });
}

}  // namespace engine
