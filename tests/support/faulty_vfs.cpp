#include "support/faulty_vfs.h"

#include <sqlite3.h>

#include <new>

namespace test::disk {
namespace {

int failing = 0, count = 0;
bool failingAlways = false;

bool fails() {
    ++count;
    return failing > 0 && (failingAlways ? count >= failing : count == failing);
}

sqlite3_vfs* system() {
    static sqlite3_vfs* const vfs = sqlite3_vfs_find("unix");
    return vfs;
}

// SQLite's view of a file comes first; the system's own lies behind it in the same memory.
struct File {
    sqlite3_file base;
    [[nodiscard]] sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};
File& of(sqlite3_file* file) {
    return *reinterpret_cast<File*>(file);
}

int close(sqlite3_file* file) {
    File& mine = of(file);
    const int code = mine.real()->pMethods->xClose(mine.real());
    mine.base.pMethods = nullptr;
    return code;
}
int read(sqlite3_file* file, void* bytes, int size, sqlite3_int64 offset) {
    if (fails()) return SQLITE_IOERR_READ;
    return of(file).real()->pMethods->xRead(of(file).real(), bytes, size, offset);
}
int write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
    if (fails()) return count % 2 == 0 ? SQLITE_IOERR_WRITE : SQLITE_FULL;
    return of(file).real()->pMethods->xWrite(of(file).real(), bytes, size, offset);
}
int truncate(sqlite3_file* file, sqlite3_int64 size) {
    if (fails()) return SQLITE_IOERR_TRUNCATE;
    return of(file).real()->pMethods->xTruncate(of(file).real(), size);
}
int flush(sqlite3_file*, int) {
    if (fails()) return SQLITE_IOERR_FSYNC;
    return SQLITE_OK;  // nobody cuts the power meanwhile, so the real disk need not be waited for
}
int size(sqlite3_file* file, sqlite3_int64* bytes) {
    return of(file).real()->pMethods->xFileSize(of(file).real(), bytes);
}
int lock(sqlite3_file* file, int level) {
    if (fails()) return SQLITE_IOERR_LOCK;
    return of(file).real()->pMethods->xLock(of(file).real(), level);
}
int unlock(sqlite3_file* file, int level) {
    return of(file).real()->pMethods->xUnlock(of(file).real(), level);
}
int isReserved(sqlite3_file* file, int* result) {
    return of(file).real()->pMethods->xCheckReservedLock(of(file).real(), result);
}
int control(sqlite3_file* file, int operation, void* argument) {
    return of(file).real()->pMethods->xFileControl(of(file).real(), operation, argument);
}
int sectorSize(sqlite3_file*) {
    return 512;
}
int characteristics(sqlite3_file*) {
    return 0;  // the poorest disk there is
}

constexpr sqlite3_io_methods methods{
    1,       close,   read,       write,   truncate,   flush,           size,
    lock,    unlock,  isReserved, control, sectorSize, characteristics, nullptr,
    nullptr, nullptr, nullptr,    nullptr, nullptr};

int open(sqlite3_vfs*, const char* path, sqlite3_file* file, int flags, int* outFlags) {
    auto* mine = new (file) File{};
    if (fails()) return SQLITE_CANTOPEN;
    const int code = system()->xOpen(system(), path, mine->real(), flags, outFlags);
    if (mine->real()->pMethods) mine->base.pMethods = &methods;
    return code;
}
int remove(sqlite3_vfs*, const char* path, int) {
    if (fails()) return SQLITE_IOERR_DELETE;
    return system()->xDelete(system(), path, 0);
}

// Registered before the program's first use of SQLite.
const bool registered = [] {
    static sqlite3_vfs vfs = *system();
    vfs.szOsFile = static_cast<int>(sizeof(File)) + system()->szOsFile;
    vfs.zName = "faulty";
    vfs.pNext = nullptr;
    vfs.xOpen = open;
    vfs.xDelete = remove;
    return sqlite3_vfs_register(&vfs, 1) == SQLITE_OK;
}();

}  // namespace

void failAt(int n, bool always) {
    failing = n;
    failingAlways = always;
    count = 0;
}
int calls() {
    return count;
}
}  // namespace test::disk
