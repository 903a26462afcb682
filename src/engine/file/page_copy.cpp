#include "engine/file/page_copy.h"

#include <sqlite3.h>

#include "engine/file/sqlite_error.h"
#include "platform/waiting.h"

namespace engine {
namespace {

constexpr int pagesBetweenSigns = 1024;

int copyRest(sqlite3_backup* backup, double doneBefore) {
    int copied = SQLITE_OK;
    while (copied == SQLITE_OK) {
        copied = sqlite3_backup_step(backup, pagesBetweenSigns);
        const double pages = sqlite3_backup_pagecount(backup);
        const double done = pages > 0 ? 1 - sqlite3_backup_remaining(backup) / pages : 0;
        platform::Waiting::giveSign(doneBefore + done * (1 - doneBefore));
    }
    return copied;
}

}  // namespace

unsigned fileVersion(sqlite3* database) {
    unsigned version = 0;
    sqlite3_file_control(database, "main", SQLITE_FCNTL_DATA_VERSION, &version);
    return version;
}

Result<bool> copyPages(sqlite3* from, sqlite3* to, std::optional<unsigned> version, double doneBefore) {
    sqlite3_backup* backup = sqlite3_backup_init(to, "main", from, "main");
    if (!backup) return std::unexpected(lastError(to));
    int copied = sqlite3_backup_step(backup, 0);  // locks both
    const bool isCurrent = copied != SQLITE_OK || !version || fileVersion(to) == *version;
    if (copied == SQLITE_OK && isCurrent) copied = copyRest(backup, doneBefore);
    const int finished = sqlite3_backup_finish(backup);
    if (!isCurrent) return false;
    if (copied == SQLITE_DONE && finished == SQLITE_OK) return true;
    return std::unexpected(errorOfCode(finished != SQLITE_OK ? finished : copied));
}

}  // namespace engine
