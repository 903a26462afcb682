#include "engine/file/careful_files.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <utility>

namespace engine {
namespace {

constexpr const char* vfsName = "zarquelin";

sqlite3_vfs* usualFiles() {
    static sqlite3_vfs* const vfs = sqlite3_vfs_find(nullptr);
    return vfs;
}

bool isOtherThanFile(const char* path) {
    struct stat status {};
    return ::lstat(path, &status) == 0 && !S_ISREG(status.st_mode);
}

// The second journal that was opened last on this thread, if nothing else was since: what SQLite deletes next
// by this very pointer.
thread_local const char* secondJournal = nullptr;

// No change of ours is one of several databases, so a second journal is looked into as an empty one.
int openCarefully(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* opened) {
    const bool isSecond = (flags & SQLITE_OPEN_SUPER_JOURNAL) != 0;
    secondJournal = isSecond ? name : nullptr;
    const bool isBeside = (flags & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_WAL)) != 0;
    if (isBeside && isOtherThanFile(name)) {
        file->pMethods = nullptr;
        return SQLITE_CANTOPEN;
    }
    return usualFiles()->xOpen(usualFiles(), isSecond ? "/dev/null" : name, file, flags, opened);
}

int removeFile(sqlite3_vfs*, const char* name, int syncFolder) {
    if (name == std::exchange(secondJournal, nullptr)) return SQLITE_OK;
    return usualFiles()->xDelete(usualFiles(), name, syncFolder);
}

int registerCarefulFiles() {
    if (!usualFiles()) return SQLITE_ERROR;
    static sqlite3_vfs careful = *usualFiles();
    careful.zName = vfsName;
    careful.pNext = nullptr;
    careful.xOpen = openCarefully;
    careful.xDelete = removeFile;
    return sqlite3_vfs_register(&careful, 0);
}

}  // namespace

const char* carefulFiles() {
    static const int done = registerCarefulFiles();
    static_cast<void>(done);
    return vfsName;
}

}  // namespace engine
