#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <utility>

#include "core/catalogue_file.h"
#include "engine/maintenance.h"
#include "platform/temporary_file.h"

namespace core {
namespace {

namespace fs = std::filesystem;

std::unexpected<engine::Error> failure(int number, std::string text) {
    return std::unexpected(engine::Error{number, std::move(text)});
}

// The file that takes the compacted rows. Its name is claimed as an empty file, so that no other program's
// file can come to stand there, and it goes away with this object or the program. A lock tells that it is in
// use; what a killed program left is replaced.
class CompactedFile {
  public:
    CompactedFile() = default;

    // "compactada.zrq" in the current directory, or beside the catalogue where that takes no file; where
    // somebody's file of that name stands, the next free name. What fails behind the making of the file
    // leaves it to the destructor.
    void create(const fs::path& cataloguesFolder) {
        std::error_code failed;
        const fs::path current = fs::current_path(failed);
        if (!failed) createIn(current);
        if (m_path.empty()) createIn(cataloguesFolder);
    }
    ~CompactedFile() {
        if (m_path.empty()) return;
        ::unlink(m_path.c_str());
        ::close(m_descriptor);
    }
    CompactedFile(const CompactedFile&) = delete;
    CompactedFile& operator=(const CompactedFile&) = delete;

    [[nodiscard]] const std::string& path() const { return m_path; }

  private:
    void createIn(const fs::path& folder) {
        constexpr int namesToTry = 100;
        const fs::path wanted(compactedName);
        for (int n = 1; n <= namesToTry && m_path.empty(); ++n) {
            const std::string number = n == 1 ? "" : '-' + std::to_string(n);
            std::string path = folder / (wanted.stem().string() + number + wanted.extension().string());
            if (engine::IsLeftByCompaction(path)) ::unlink(path.c_str());
            const int fd = ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
            if (fd < 0 && errno != EEXIST) return;
            if (fd < 0) continue;
            (void)platform::claimed(fd);
            m_descriptor = fd;
            m_path = std::move(path);
            m_registered.emplace(m_path);
        }
    }

    std::string m_path;  // empty when no file can be made there
    int m_descriptor = -1;
    std::optional<platform::RegisteredName> m_registered;
};

}  // namespace

engine::Result<> compactCatalogue(const std::string& path) {
    std::error_code missing;
    const std::string catalogue = fs::canonical(path, missing);  // a link stays a link
    if (missing) return failure(engine::error::fileNotFound, path + ": " + missing.message());
    const fs::perms mode = fs::status(catalogue, missing).permissions();
    if ((mode & (fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write)) ==
        fs::perms::none)
        return failure(engine::error::readOnly, path + ": the file is read-only");

    CompactedFile compacted;
    const fs::path folder = fs::path(catalogue).parent_path();
    compacted.create(folder);
    if (compacted.path().empty())
        return failure(engine::error::readOnly, folder.native() + ": no file can be made there");
    return engine::CompactDatabase(catalogue, compacted.path());
}

}  // namespace core
