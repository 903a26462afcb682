#pragma once

#include <memory>
#include <string>

#include "engine/file/prepared.h"
#include "engine/file/use.h"
#include "platform/held_files.h"

namespace engine {

struct CloseSqlite {
    void operator()(sqlite3* database) const;
};
using SqliteHandle = std::unique_ptr<sqlite3, CloseSqlite>;

// How many steps SQLite's machine makes until who waits is given a sign: those of some milliseconds.
constexpr int stepsBetweenSigns = 20'000;

// Opens or creates a file as it stands, with our functions registered and the file's schema distrusted.
[[nodiscard]] Result<SqliteHandle> openSqlite(const std::string& path, int sqliteFlags);

// What a handle is told first.
[[nodiscard]] const char* settingsFor(Use use);

// From now on the handle looks every millisecond, for so many of them, whether a file that others hold is
// free, and gives a sign each time: SQLite's own waiting soon looks ten times a second, and misses the
// moments in which another program's long scan lets others write. The number must outlive the handle.
void waitForOthers(sqlite3* database, const int& milliseconds);

// Runs statements that take no values and give no rows.
[[nodiscard]] Result<> run(sqlite3* database, const char* sql);

// One SQLite connection on a catalogue file, shared by a Database and its open recordsets.
class Connection {
  public:
    [[nodiscard]] static Result<std::shared_ptr<Connection>> open(const std::string& path, Use use);

    [[nodiscard]] sqlite3* handle() const { return m_handle.get(); }
    [[nodiscard]] bool isOpen() const { return m_handle != nullptr; }
    [[nodiscard]] Use use() const { return m_use; }
    [[nodiscard]] const std::string& path() const { return m_path; }

    // Whether the path leads to another file by now, which another program has put there.
    [[nodiscard]] bool isReplaced() const;
    [[nodiscard]] bool isInTransaction() const;
    [[nodiscard]] Result<> begin();  // of a change, from which on nobody else can begin one
    [[nodiscard]] Result<> commit();
    void rollBack() noexcept;  // an open transaction, if there is one

    [[nodiscard]] Result<Prepared> prepare(const std::string& sql) { return m_pool.lend(sql); }
    [[nodiscard]] Result<> run(const char* sql) { return engine::run(handle(), sql); }

    // Changes whenever rows may have changed since the last call, through this connection or another one.
    // Fails when the file cannot be read now (locked, damaged).
    [[nodiscard]] Result<long long> version();
    void noteWrite() { ++m_writes; }
    [[nodiscard]] bool hasWritten() const { return m_writes > 0; }

    void close();

  private:
    Connection(SqliteHandle handle, std::string path, platform::FileIdentity file, Use use);

    std::string m_path;
    platform::HeldFile m_file;
    SqliteHandle m_handle;
    StatementPool m_pool;
    Use m_use;
    long long m_writes = 0;
    long long m_version = 0;
    std::int64_t m_seenData = -1;
    long long m_seenWrites = 0;
};

}  // namespace engine
