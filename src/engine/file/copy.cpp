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
    if (auto held = (*there)->run("begin immediate"); !held) return std::unexpected(held.error());
    return there;
}

Result<> writeCopy(sqlite3* from, const std::string& path) {
    auto to = openSqlite(path, SQLITE_OPEN_READWRITE);
    if (!to) return std::unexpected(to.error());
    // The file is nobody's yet and is flushed as a whole when it is put in place.
    if (auto set = run(to->get(), "pragma journal_mode = memory; pragma synchronous = off"); !set) return set;
    // So that no change comes between two pages.
    if (auto begun = run(from, "begin; select count(*) from sqlite_schema"); !begun) return begun;
    if (auto copied = copyPages(from, to->get()); !copied) return std::unexpected(copied.error());
    return run(from, "commit");
}

}  // namespace

Result<> CopyDatabase(const std::string& source, const std::string& destination) {
    return guarded([&]() -> Result<> {
        auto from = Connection::open(source, Use::ReadOnly);
        if (!from) return std::unexpected(from.error());
        if (const auto allowed = platform::checkReplaceable(source, destination); !allowed)
            return std::unexpected(Error{error::readOnly, allowed.error().text});
        auto replaced = heldStill(destination);
        if (!replaced) return std::unexpected(replaced.error());
        auto copy = replacementFor(destination);
        if (!copy) return std::unexpected(copy.error());
        if (auto copied = writeCopy((*from)->handle(), copy->path()); !copied) return copied;
        if (!*replaced) forgetInterruptedChange(destination);
        return putInPlace(*copy, source);
    });
}

Result<> CopyUnreadable(const std::string& source, const std::string& destination) {
    return guarded([&]() -> Result<> {
        auto replaced = heldStill(destination);
        if (!replaced) return std::unexpected(replaced.error());
        if (!*replaced) forgetInterruptedChange(destination);
        platform::flushFolder(platform::folderOf(destination));  // as putInPlace() does
        if (const auto copied = platform::CopyFile(source, destination); !copied)
            return std::unexpected(errorOf(copied.error()));
        return {};
    });
}

}  // namespace engine
