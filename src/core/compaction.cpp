#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>

#include "core/catalogue_file.h"
#include "engine/database.h"
#include "engine/maintenance.h"
#include "platform/files.h"

namespace core {
namespace {

namespace fs = std::filesystem;

std::unexpected<engine::Error> failure(int number, std::string text) {
    return std::unexpected(engine::Error{number, std::move(text)});
}

// The file that takes the compacted rows. Its name is claimed as an empty file, so that no other program's
// file can come to stand there, and it goes away with this object.
class CompactedFile {
  public:
    // "compactada.zrq" in the current directory or, where somebody's file of that name stands, the next free
    // name.
    CompactedFile() {
        constexpr int namesToTry = 100;
        std::error_code failed;
        const fs::path folder = fs::current_path(failed);
        if (failed) return;
        const fs::path wanted(compactedName);
        for (int n = 1; n <= namesToTry && m_path.empty(); ++n) {
            const std::string number = n == 1 ? "" : '-' + std::to_string(n);
            const fs::path path = folder / (wanted.stem().string() + number + wanted.extension().string());
            const int fd = ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
            if (fd < 0 && errno != EEXIST) return;
            if (fd < 0) continue;
            ::close(fd);
            m_path = path;
        }
    }
    ~CompactedFile() {
        if (!m_path.empty()) ::unlink(m_path.c_str());
    }
    CompactedFile(const CompactedFile&) = delete;
    CompactedFile& operator=(const CompactedFile&) = delete;

    [[nodiscard]] const std::string& path() const { return m_path; }

  private:
    std::string m_path;  // empty when no file can be made there
};

struct stat statusOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return {};
    return status;
}

bool isUnchanged(const struct stat& before, const struct stat& now) {
    return before.st_dev == now.st_dev && before.st_ino == now.st_ino && before.st_size == now.st_size &&
           before.st_mtim.tv_sec == now.st_mtim.tv_sec && before.st_mtim.tv_nsec == now.st_mtim.tv_nsec;
}

engine::Result<long long> rowCount(engine::Database& database) {
    auto rows = database.OpenRecordset("select * from datos");
    if (!rows) return std::unexpected(rows.error());
    const long long count = rows->RecordCount();
    if (rows->error()) return std::unexpected(*rows->error());
    return count;
}

engine::Result<> sameRows(engine::Database& catalogue, const std::string& compacted) {
    auto copy = engine::OpenDatabase(compacted, engine::Use::ReadOnly);
    if (!copy) return std::unexpected(copy.error());
    const auto expected = rowCount(catalogue);
    if (!expected) return std::unexpected(expected.error());
    const auto found = rowCount(*copy);
    if (!found) return std::unexpected(found.error());
    if (*expected != *found) return failure(engine::error::corrupt, compacted + ": not all rows were copied");
    return {};
}

engine::Result<> putInPlace(const std::string& compacted, const std::string& path, mode_t mode) {
    // The catalogue keeps its permissions, not those of a file just made.
    if (::chmod(compacted.c_str(), mode & 07777) != 0)
        return failure(engine::error::general, compacted + ": " + std::strerror(errno));
    if (const auto copied = platform::CopyFile(compacted, path); !copied) {
        const int number = copied.error().number == platform::FileError::diskFull ? engine::error::diskFull
                           : copied.error().number == platform::FileError::permissionDenied
                               ? engine::error::readOnly
                               : engine::error::general;
        return failure(number, copied.error().text);
    }
    return {};
}

}  // namespace

engine::Result<> compactCatalogue(const std::string& path) {
    std::error_code missing;
    const std::string catalogue = fs::canonical(path, missing);  // a link stays a link
    if (missing) return failure(engine::error::fileNotFound, path + ": " + missing.message());
    const struct stat before = statusOf(catalogue);
    if ((before.st_mode & 0222) == 0)
        return failure(engine::error::readOnly, path + ": the file is read-only");

    const CompactedFile compacted;
    if (compacted.path().empty())
        return failure(engine::error::cannotOpenFile, "no file can be made in the current directory");
    if (auto done = engine::CompactDatabase(catalogue, compacted.path()); !done) return done;

    // From here on other programs cannot write to the catalogue; what they wrote meanwhile must not be lost.
    auto held = engine::OpenDatabase(catalogue);
    if (!held) return std::unexpected(held.error());
    engine::Transaction others(*held);
    if (auto begun = others.begin(); !begun) return begun;
    if (!isUnchanged(before, statusOf(catalogue)))
        return failure(engine::error::locked, path + ": another program is writing to the catalogue");
    if (auto same = sameRows(*held, compacted.path()); !same) return same;
    return putInPlace(compacted.path(), catalogue, before.st_mode);
}

}  // namespace core
