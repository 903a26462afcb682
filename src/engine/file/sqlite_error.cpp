#include "engine/file/sqlite_error.h"

#include <sqlite3.h>

namespace engine {

namespace {

int numberOfCode(int sqliteCode) {
    if (sqliteCode == SQLITE_READONLY_DBMOVED) return error::replaced;
    if (sqliteCode == SQLITE_READONLY_ROLLBACK) return error::interrupted;
    switch (sqliteCode & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return error::locked;
        case SQLITE_READONLY:
            return error::readOnly;
        case SQLITE_FULL:
            return error::diskFull;
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return error::cannotOpenFile;
        case SQLITE_NOTADB:
            return error::unrecognizedFormat;
        case SQLITE_CORRUPT:
            return error::corrupt;
        case SQLITE_NOMEM:
            return error::outOfMemory;
        case SQLITE_CONSTRAINT:
            return error::duplicateValue;
        default:
            return error::general;
    }
}

}  // namespace

Error errorOfCode(int sqliteCode, const std::string& text) {
    const int number = numberOfCode(sqliteCode);
    if (number == error::replaced) return {number, "it is gone, or another program has replaced it"};
    if (number == error::interrupted)
        return {number, "a change was broken off: open a copy, with its -journal, where it can be written"};
    if (sqliteCode == SQLITE_READONLY_DIRECTORY) return {number, "its folder is read-only"};
    return {number, text.empty() ? sqlite3_errstr(sqliteCode) : text};
}

Error lastError(sqlite3* database) {
    return errorOfCode(sqlite3_extended_errcode(database), sqlite3_errmsg(database));
}

}  // namespace engine
