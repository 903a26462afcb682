#include "engine/file/open_files.h"

#include <sys/stat.h>

#include <map>
#include <mutex>
#include <utility>

namespace engine {

namespace {

struct Register {
    std::mutex guard;
    std::map<FileIdentity, int> handles;
};

Register& theRegister() {
    static Register files;
    return files;
}

}  // namespace

std::optional<FileIdentity> identityOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}

OpenFile::OpenFile(FileIdentity file) : m_file(file) {
    const std::scoped_lock lock(theRegister().guard);
    ++theRegister().handles[file];
}

OpenFile::OpenFile(OpenFile&& other) noexcept : m_file(std::exchange(other.m_file, std::nullopt)) {}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
    std::swap(m_file, other.m_file);  // the other one lets go of ours at its end
    return *this;
}

OpenFile::~OpenFile() {
    if (!m_file) return;
    const std::scoped_lock lock(theRegister().guard);
    const auto found = theRegister().handles.find(*m_file);
    if (--found->second == 0) theRegister().handles.erase(found);
}

bool OpenFile::isOpen(FileIdentity file) {
    const std::scoped_lock lock(theRegister().guard);
    return theRegister().handles.contains(file);
}

}  // namespace engine
