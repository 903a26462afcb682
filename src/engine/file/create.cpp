#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "engine/file/connection.h"
#include "engine/file/schema.h"
#include "engine/format.h"
#include "engine/guarded.h"
#include "engine/maintenance.h"

namespace engine {

Result<> writeSchema(sqlite3* database) {
    const std::string marks = "pragma page_size = " + std::to_string(pageSize) +
                              "; begin; pragma application_id = " + std::to_string(applicationId) +
                              "; pragma user_version = " + std::to_string(formatVersion);
    for (const char* step : {marks.c_str(), createTable, createIndex, "commit"}) TRY(run(database, step));
    return {};
}

Result<> CreateDatabase(const std::string& nativePath, Use use) {
    return guarded([&]() -> Result<> {
        // Taking the name first keeps a file that is there already from being written into.
        const int file = ::open(nativePath.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file < 0) {
            const int number = errno == EEXIST ? error::fileExists : error::cannotOpenFile;
            return std::unexpected(Error{number, nativePath + ": " + std::strerror(errno)});
        }
        ::close(file);
        auto database = openSqlite(nativePath, SQLITE_OPEN_READWRITE);
        Result<> written =
            database ? run(database->get(), settingsFor(use)) : std::unexpected(database.error());
        if (written) written = writeSchema(database->get());
        if (database) database->reset();
        if (!written) ::unlink(nativePath.c_str());
        return written;
    });
}

}  // namespace engine
