#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>

#include "engine/file/connection.h"
#include "engine/file/page_copy.h"
#include "engine/file/replacement.h"
#include "engine/format.h"
#include "engine/guarded.h"
#include "engine/maintenance.h"
#include "platform/waiting.h"

namespace engine {

namespace {

const int patienceMilliseconds = 5000;  // of a compaction with programs that write all the time
constexpr int mostTries = 3;
constexpr double shareOfReading = 0.5;  // of the time; the rest goes into writing back

// Behind the last page, where SQLite does not look: what a killed compaction left is known by it.
constexpr std::string_view leftOverMark = "\nzarquelin: left by a compaction, can be deleted\n";

// What a vacuum reads of the file, each page once.
struct Reading {
    sqlite3* database;
    long long pages;
};

int tellPagesRead(void* vacuum) {
    const auto& reading = *static_cast<Reading*>(vacuum);
    int read = 0, highest = 0;
    sqlite3_db_status(reading.database, SQLITE_DBSTATUS_CACHE_MISS, &read, &highest, 0);
    const double share = reading.pages > 0 ? std::min(1.0, double(read) / double(reading.pages)) : 0;
    platform::Waiting::giveSign(share * shareOfReading);
    return 0;
}

Result<> vacuum(const std::string& source, const std::string& path) {
    const auto database = TRY(openSqlite(source, SQLITE_OPEN_READWRITE));
    StatementPool pool(database.get());
    Reading reading{database.get(), TRY(pool.number("pragma page_count"))};
    sqlite3_progress_handler(database.get(), stepsBetweenSigns, tellPagesRead, &reading);
    auto statement = TRY(pool.lend("vacuum into ?"));
    statement.bind(0, std::string_view(path));
    return statement.run();
}

Result<> sameRows(sqlite3* source, sqlite3* compacted) {
    constexpr auto countRows = "select count(*) from datos";
    if (TRY(StatementPool(source).number(countRows)) != TRY(StatementPool(compacted).number(countRows)))
        return std::unexpected(Error{error::corrupt, "Not all rows were copied"});
    return {};
}

// The compacted rows in a file beside `destination`, complete and with its index. `locked` keeps `source`
// from change.
Result<platform::TemporaryFile> compacted(sqlite3* locked, const std::string& source,
                                          const std::string& destination) {
    auto made = TRY(replacementFor(destination));
    TRY(vacuum(source, made.path()));
    const auto written = TRY(openSqlite(made.path(), SQLITE_OPEN_READWRITE));
    TRY(run(written.get(), "pragma journal_mode = memory"));
    TRY(run(written.get(), createIndex));
    TRY(sameRows(locked, written.get()));
    return made;
}

Result<std::shared_ptr<Connection>> locked(const std::string& path) {
    auto opened = TRY(Connection::open(path, Use::Catalogue));
    waitForOthers(opened->handle(), patienceMilliseconds);
    if (sqlite3_db_readonly(opened->handle(), "main") != 0)
        return std::unexpected(Error{error::readOnly, path + ": the file is read-only"});
    TRY(opened->run("begin immediate"));
    return opened;
}

// False when another program was faster between the lock of the copying and that of the copying back.
Result<bool> compactThrough(const std::string& path, const std::string& between) {
    const auto held = TRY(locked(path));
    const unsigned before = fileVersion(held->handle());
    auto written = TRY(compacted(held->handle(), path, between));
    const off_t end = ::lseek(written.descriptor(), 0, SEEK_END);
    if (::pwrite(written.descriptor(), leftOverMark.data(), leftOverMark.size(), end) !=
        static_cast<ssize_t>(leftOverMark.size()))
        return std::unexpected(errorOf(platform::systemFailure(between).error()));
    // By the name that nobody else uses: whatever another compaction puts at `between`, these rows go back.
    const auto source = TRY(openSqlite(written.path(), SQLITE_OPEN_READONLY));
    TRY(run(source.get(), "begin; select count(*) from sqlite_schema"));
    TRY(putInPlace(written, path));
    TRY(held->run("rollback"));
    return copyPages(source.get(), held->handle(), before, shareOfReading);
}

}  // namespace

Result<> CompactDatabase(const std::string& path, const std::string& between) {
    return guarded([&]() -> Result<> {
        if (platform::HeldFile::isHeld(path)) return std::unexpected(Error{error::locked, path + " is open"});
        for (int i = 0; i < mostTries; ++i)
            if (TRY(compactThrough(path, between))) return {};
        return std::unexpected(Error{error::locked, path + ": other programs write to it all the time"});
    });
}

bool IsLeftByCompaction(const std::string& path) {
    if (platform::HeldFile::isHeld(path)) return false;
    std::string end(leftOverMark.size(), '\0');
    const int file = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0) return false;
    struct stat status {};
    const bool isFree = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && platform::claimed(file);
    const auto at = status.st_size - static_cast<off_t>(end.size());
    const bool isMarked = isFree && at > 0 &&
                          ::pread(file, end.data(), end.size(), at) == static_cast<ssize_t>(end.size()) &&
                          end == leftOverMark;
    platform::closeKeepingLocks(file);
    return isFree && (isMarked || status.st_size == 0);
}

}  // namespace engine
