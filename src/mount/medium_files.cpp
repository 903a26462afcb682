#include "mount/medium_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/locate.h"

namespace mount {
namespace {

constexpr std::chrono::seconds pause{1};
constexpr std::size_t mostMissing = 10'000;

// Without waiting for whatever took the place of a regular file.
std::expected<int, int> openForReading(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (descriptor >= 0) return descriptor;
    return std::unexpected(errno == ENOENT || errno == ENOTDIR ? ENOMEDIUM : errno);
}

}  // namespace

std::expected<int, int> MediumFiles::open(const core::CataloguedFile& file) {
    const std::string key = file.ruta + '\0' + file.name;
    if (wasMissedLately(key)) return std::unexpected(ENOMEDIUM);
    const auto found = core::locate(m_drives(), file, core::Spelling::Stored);
    struct stat status {};
    // Asked before it is opened: opening a file of our own would wait for ourselves.
    if (!found || ::stat(found->path.c_str(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_dev == m_excluded) {
        noteMissing(key);
        return std::unexpected(ENOMEDIUM);
    }
    return openForReading(found->path);
}

bool MediumFiles::wasMissedLately(const std::string& key) {
    const std::scoped_lock guard(m_lock);
    const auto missed = m_missing.find(key);
    return missed != m_missing.end() && m_clock() - missed->second < pause;
}

void MediumFiles::noteMissing(const std::string& key) {
    const std::scoped_lock guard(m_lock);
    const Moment now = m_clock();
    if (m_missing.size() >= mostMissing)
        std::erase_if(m_missing, [now](const auto& missed) { return now - missed.second >= pause; });
    m_missing[key] = now;
}

}  // namespace mount
