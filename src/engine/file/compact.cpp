#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>

#include "engine/file/connection.h"
#include "engine/file/page_copy.h"
#include "engine/file/replacement.h"
#include "engine/file/sqlite_error.h"
#include "engine/format.h"
#include "engine/guarded.h"
#include "engine/maintenance.h"
#include "platform/waiting.h"

namespace engine {

namespace {

constexpr int patienceMilliseconds = 5000;  // of a compaction with programs that write all the time
constexpr int mostTries = 3;
constexpr double shareOfReading = 0.5;  // of the time; the rest goes into writing back
constexpr auto countRows = "select count(*) from datos";

// Behind the last page, where SQLite does not look: what a killed compaction left is known by it.
constexpr std::string_view leftOverMark = "\nzarquelin: left by a compaction, can be deleted\n";

Result<> refuseOpenFile(const std::string& path) {
    if (platform::HeldFile::isHeld(path)) return std::unexpected(Error{error::locked, path + " is open"});
    return {};
}

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

Result<long long> numberFrom(sqlite3* database, const char* question) {
    StatementPool pool(database);
    auto asked = pool.lend(question);
    if (!asked) return std::unexpected(asked.error());
    if (asked->step() != Prepared::Step::Row) return std::unexpected(lastError(database));
    return asked->integer(0);
}

Result<> vacuumInto(sqlite3* database, const std::string& path) {
    const auto pages = numberFrom(database, "pragma page_count");
    if (!pages) return std::unexpected(pages.error());
    Reading reading{database, *pages};
    sqlite3_progress_handler(database, stepsBetweenSigns, tellPagesRead, &reading);
    StatementPool pool(database);
    auto vacuum = pool.lend("vacuum into ?");
    if (!vacuum) return std::unexpected(vacuum.error());
    vacuum->bind(0, std::string_view(path));
    const bool written = vacuum->step() != Prepared::Step::Failed;
    sqlite3_progress_handler(database, 0, nullptr, nullptr);
    if (!written) return std::unexpected(lastError(database));
    return {};
}

Result<> sameRows(sqlite3* source, sqlite3* compacted) {
    const auto expected = numberFrom(source, countRows);
    if (!expected) return std::unexpected(expected.error());
    const auto found = numberFrom(compacted, countRows);
    if (!found) return std::unexpected(found.error());
    if (*expected != *found) return std::unexpected(Error{error::corrupt, "Not all rows were copied"});
    return {};
}

// The compacted rows in a file beside `destination`, complete and with its index. `locked` keeps `source`
// from change.
Result<platform::TemporaryFile> compacted(sqlite3* locked, const std::string& source,
                                          const std::string& destination) {
    auto made = replacementFor(destination);
    if (!made) return made;
    const auto failed = [](const Error& error) { return std::unexpected(error); };
    {
        auto reader = openSqlite(source, SQLITE_OPEN_READWRITE);
        if (!reader) return failed(reader.error());
        if (auto written = vacuumInto(reader->get(), made->path()); !written) return failed(written.error());
    }
    auto written = openSqlite(made->path(), SQLITE_OPEN_READWRITE);
    if (!written) return failed(written.error());
    if (auto set = run(written->get(), "pragma journal_mode = memory"); !set) return failed(set.error());
    if (auto index = run(written->get(), createIndex); !index) return failed(index.error());
    if (auto same = sameRows(locked, written->get()); !same) return failed(same.error());
    return made;
}

Result<std::shared_ptr<Connection>> locked(const std::string& path) {
    auto opened = Connection::open(path, Use::Catalogue);
    if (!opened) return opened;
    sqlite3_busy_timeout((*opened)->handle(), patienceMilliseconds);
    if (sqlite3_db_readonly((*opened)->handle(), "main") != 0)
        return std::unexpected(Error{error::readOnly, path + ": the file is read-only"});
    if (auto begun = (*opened)->run("begin immediate"); !begun) return std::unexpected(begun.error());
    return opened;
}

// False when another program was faster between the lock of the copying and that of the copying back.
Result<bool> compactThrough(const std::string& path, const std::string& between) {
    auto held = locked(path);
    if (!held) return std::unexpected(held.error());
    const unsigned before = fileVersion((*held)->handle());
    auto written = compacted((*held)->handle(), path, between);
    if (!written) return std::unexpected(written.error());
    const off_t end = ::lseek(written->descriptor(), 0, SEEK_END);
    if (::pwrite(written->descriptor(), leftOverMark.data(), leftOverMark.size(), end) !=
        static_cast<ssize_t>(leftOverMark.size()))
        return std::unexpected(errorOf(platform::systemFailure(between).error()));
    // By the name that nobody else uses: whatever another compaction puts at `between`, these rows go back.
    auto source = openSqlite(written->path(), SQLITE_OPEN_READONLY);
    if (!source) return std::unexpected(source.error());
    if (auto begun = run(source->get(), "begin; select count(*) from sqlite_schema"); !begun)
        return std::unexpected(begun.error());
    if (auto put = putInPlace(*written, path); !put) return std::unexpected(put.error());
    if (auto ended = (*held)->run("rollback"); !ended) return std::unexpected(ended.error());
    return copyPages(source->get(), (*held)->handle(), before, {.from = shareOfReading});
}

}  // namespace

Result<> CompactDatabase(const std::string& path, const std::string& between) {
    return guarded([&]() -> Result<> {
        if (auto free = refuseOpenFile(path); !free) return free;
        for (int i = 0; i < mostTries; ++i) {
            const auto done = compactThrough(path, between);
            if (!done) return std::unexpected(done.error());
            if (*done) return {};
        }
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
