#include "engine/file/careful_files.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <string_view>

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

// No change of ours is one of several databases, so a second journal is looked into as an empty one.
int openCarefully(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* opened) {
    if ((flags & SQLITE_OPEN_SUPER_JOURNAL) != 0) name = "/dev/null";
    const bool isBeside = (flags & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_WAL)) != 0;
    if (isBeside && isOtherThanFile(name)) {
        file->pMethods = nullptr;
        return SQLITE_CANTOPEN;
    }
    return usualFiles()->xOpen(usualFiles(), name, file, flags, opened);
}

int removeJournal(sqlite3_vfs*, const char* name, int syncFolder) {
    const std::string_view path(name);
    if (!path.ends_with("-journal") && !path.ends_with("-wal")) return SQLITE_OK;  // none of ours
    return usualFiles()->xDelete(usualFiles(), name, syncFolder);
}

int registerCarefulFiles() {
    if (!usualFiles()) return SQLITE_ERROR;
    static sqlite3_vfs careful = *usualFiles();
    careful.zName = vfsName;
    careful.pNext = nullptr;
    careful.xOpen = openCarefully;
    careful.xDelete = removeJournal;
    return sqlite3_vfs_register(&careful, 0);
}

}  // namespace

const char* carefulFiles() {
    static const int done = registerCarefulFiles();
    static_cast<void>(done);
    return vfsName;
}

}  // namespace engine
