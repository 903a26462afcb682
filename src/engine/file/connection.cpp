#include "engine/file/connection.h"

#include <sqlite3.h>

#include <chrono>
#include <thread>

#include "engine/file/careful_files.h"
#include "engine/file/file_header.h"
#include "engine/file/schema.h"
#include "engine/file/sql_functions.h"
#include "engine/file/sqlite_error.h"
#include "engine/format.h"
#include "platform/waiting.h"

namespace engine {

namespace {

const int busyMilliseconds = 1000;
// A commit waits for those who only read (another program's backup) and can wait for nothing else.
const int commitMilliseconds = 10'000;

int waitAMillisecond(void* milliseconds, int waited) {
    if (waited >= *static_cast<const int*>(milliseconds)) return 0;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    platform::Waiting::giveSign();
    return 1;  // try again
}

// A path that SQLite can take for nothing but a path (it knows "file:" and ":memory:").
std::string plainPath(const std::string& path) {
    return path.starts_with('/') ? path : "./" + path;
}

// A file may come from anywhere: nothing in its schema may act.
void distrustSchema(sqlite3* database) {
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, longestValue);
}

// Into a scratch file rows come from another one, which is named by an address that lets it be read only.
int flagsFor(Use use) {
    switch (use) {
        case Use::Catalogue:
            return SQLITE_OPEN_READWRITE;
        case Use::ReadOnly:
            return SQLITE_OPEN_READONLY;
        case Use::Scratch:
            return SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI;
    }
    return 0;
}

// Another tool may have left the file in a mode that needs a second file beside it. Costs nothing when it did
// not; a program that has it open in that mode, or a file that cannot be written, leaves it so for now.
Result<> undoForeignMode(sqlite3* database) {
    if (sqlite3_db_readonly(database, "main") != 0) return {};
    auto undone = run(database, "pragma journal_mode = delete");
    const bool isLater =
        !undone && (undone.error().number == error::locked || undone.error().number == error::readOnly);
    return isLater ? Result<>() : undone;
}

// SQLite's count of its memory would cost a lock and an update for each allocation, several a row. Comes too
// late, and does nothing, if some other library of the process has used SQLite before.
void keepNoMemoryCount() {
    static const int done = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    static_cast<void>(done);
}

int giveSign(void*) {
    platform::Waiting::giveSign();
    return 0;  // go on
}

// A program died within a change. The first one that may write puts the file right, also when it came to
// read; where nobody may write, the file stays unreadable.
void undoInterruptedChange(const std::string& path) {
    const auto writer = openSqlite(path, SQLITE_OPEN_READWRITE);
    if (writer) static_cast<void>(run(writer->get(), "select count(*) from sqlite_schema"));
}

}  // namespace

// Deleted rows are wiped, so that what a repair finds on pages that nothing leads to is no row deleted long
// ago.
const char* settingsFor(Use use) {
    switch (use) {
        case Use::Catalogue:
            return "pragma synchronous = extra; pragma secure_delete = on";
        case Use::ReadOnly:
            return "pragma query_only = on";
        case Use::Scratch:
            return "pragma locking_mode = exclusive; pragma journal_mode = memory; pragma synchronous = off;"
                   "pragma secure_delete = off";
    }
    return "";
}

void waitForOthers(sqlite3* database, const int& milliseconds) {
    sqlite3_busy_handler(database, waitAMillisecond, const_cast<int*>(&milliseconds));
}

void CloseSqlite::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

Result<> run(sqlite3* database, const char* sql) {
    if (!database) return std::unexpected(Error{error::general, "The database is closed"});
    if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        return std::unexpected(lastError(database));
    }
    return {};
}

Result<SqliteHandle> openSqlite(const std::string& path, int sqliteFlags) {
    keepNoMemoryCount();
    sqlite3* opened = nullptr;
    const int code =
        sqlite3_open_v2(plainPath(path).c_str(), &opened,
                        sqliteFlags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, carefulFiles());
    SqliteHandle handle(opened);
    if (code != SQLITE_OK) return std::unexpected(errorOfCode(code));
    waitForOthers(opened, busyMilliseconds);
    sqlite3_progress_handler(opened, stepsBetweenSigns, giveSign, nullptr);
    distrustSchema(opened);
    if (const int failed = registerFunctions(opened); failed != SQLITE_OK)
        return std::unexpected(errorOfCode(failed));
    return handle;
}

Connection::Connection(SqliteHandle handle, std::string path, platform::FileIdentity file, Use use)
    : m_path(std::move(path)),
      m_file(file),
      m_handle(std::move(handle)),
      m_pool(m_handle.get()),
      m_use(use) {}

Result<std::shared_ptr<Connection>> Connection::open(const std::string& path, Use use) {
    TRY(checkCatalogueFile(path));
    const auto file = platform::identityOf(path);
    if (!file) return std::unexpected(Error{error::fileNotFound, path + " has vanished"});
    const platform::HeldFile held(*file);
    auto handle = TRY(openSqlite(path, flagsFor(use)));
    TRY(engine::run(handle.get(), settingsFor(use)));
    auto sound = checkSchema(handle.get());
    if (!sound && sqlite3_extended_errcode(handle.get()) == SQLITE_READONLY_ROLLBACK) {
        undoInterruptedChange(path);
        sound = checkSchema(handle.get());
    }
    TRY(sound);
    if (use == Use::Catalogue) TRY(undoForeignMode(handle.get()));
    return std::shared_ptr<Connection>(new Connection(std::move(handle), path, *file, use));
}

Result<long long> Connection::version() {
    std::int64_t data = m_seenData;
    if (m_use != Use::Scratch) {  // which nobody else can write to
        data = TRY(m_pool.number("pragma data_version"));
    }
    if (data != m_seenData || m_writes != m_seenWrites) ++m_version;
    m_seenData = data;
    m_seenWrites = m_writes;
    return m_version;
}

bool Connection::isReplaced() const {
    int moved = 0;
    return isOpen() && sqlite3_file_control(handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK &&
           moved != 0;
}

bool Connection::isInTransaction() const {
    return isOpen() && sqlite3_get_autocommit(handle()) == 0;
}

// SQLite itself begins to read where a file cannot be written, and fails at the first change.
Result<> Connection::begin() {
    if (isOpen() && sqlite3_db_readonly(handle(), "main") != 0)
        return std::unexpected(errorOfCode(SQLITE_READONLY));
    return run("begin immediate");
}

Result<> Connection::commit() {
    if (isOpen()) waitForOthers(handle(), commitMilliseconds);
    auto committed = run("commit");
    if (isOpen()) waitForOthers(handle(), busyMilliseconds);
    return committed;
}

void Connection::rollBack() noexcept {
    if (isInTransaction()) sqlite3_exec(handle(), "rollback", nullptr, nullptr, nullptr);
}

void Connection::close() {
    m_pool.close();
    m_handle.reset();
    m_file = platform::HeldFile();
}

}  // namespace engine
