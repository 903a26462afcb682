#include "engine/file/file_state.h"

#include <sqlite3.h>
#include <sys/stat.h>

namespace engine {

namespace {

// The versions of the format for writing and reading. 2 stands for a log beside the file.
constexpr std::size_t writeVersionAt = 18;
constexpr std::size_t readVersionAt = 19;
constexpr char rollbackJournal = 1;

// Through the descriptor that SQLite has: closing another one would drop its locks.
bool readHeader(sqlite3* database, std::array<char, 100>& header) {
    sqlite3_file* file = nullptr;
    return sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file) == SQLITE_OK && file &&
           file->pMethods &&
           file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0) == SQLITE_OK;
}

}  // namespace

std::optional<FileState> lockedState(const Connection& connection) {
    if (!connection.isOpen() || sqlite3_txn_state(connection.handle(), "main") != SQLITE_TXN_READ)
        return std::nullopt;
    struct stat status {};
    if (::stat(connection.path().c_str(), &status) != 0 || connection.isReplaced()) return std::nullopt;
    FileState state{
        status.st_dev,
        status.st_ino,
        status.st_size,
        {status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec}};
    if (!readHeader(connection.handle(), state.header)) return std::nullopt;
    if (state.header[writeVersionAt] != rollbackJournal || state.header[readVersionAt] != rollbackJournal)
        return std::nullopt;
    return state;
}

}  // namespace engine
