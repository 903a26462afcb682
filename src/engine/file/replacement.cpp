#include "engine/file/replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace engine {

namespace {

Error systemError(const std::string& path) {
    const int number = errno == ENOSPC || errno == EDQUOT ? error::diskFull : error::cannotOpenFile;
    return {number, path + ": " + std::strerror(errno)};
}

bool flush(const std::string& path, int flags) {
    const int file = ::open(path.c_str(), flags | O_CLOEXEC);
    if (file < 0) return false;
    const bool flushed = ::fsync(file) == 0;
    ::close(file);
    return flushed;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace

Result<Replacement> Replacement::beside(const std::string& target, const std::string& model) {
    std::string path = target + ".XXXXXX";
    const int file = ::mkstemp(path.data());
    if (file < 0) return std::unexpected(systemError(target));
    struct stat status {};
    if (::stat(model.c_str(), &status) == 0) (void)::fchmod(file, status.st_mode & 0777);
    ::close(file);
    return Replacement(std::move(path), target);
}

Replacement::Replacement(Replacement&& other) noexcept
    : m_path(std::exchange(other.m_path, {})), m_target(std::move(other.m_target)) {}

Replacement::~Replacement() {
    if (!m_path.empty()) ::unlink(m_path.c_str());
}

Result<> Replacement::putInPlace() {
    if (!flush(m_path, O_RDWR) || std::rename(m_path.c_str(), m_target.c_str()) != 0) {
        return std::unexpected(systemError(m_target));
    }
    m_path.clear();
    (void)flush(folderOf(m_target), O_RDONLY | O_DIRECTORY);
    return {};
}

}  // namespace engine
