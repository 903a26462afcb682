#include "platform/held_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace platform {

namespace {

struct Holds {
    int count = 0;
    std::vector<int> closedLater;
};

struct Register {
    std::mutex guard;
    std::map<FileIdentity, Holds> files;
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

HeldFile::HeldFile(FileIdentity file) : m_file(file) {
    const std::scoped_lock lock(theRegister().guard);
    ++theRegister().files[file].count;
}

HeldFile::HeldFile(HeldFile&& other) noexcept : m_file(std::exchange(other.m_file, std::nullopt)) {}

HeldFile& HeldFile::operator=(HeldFile&& other) noexcept {
    std::swap(m_file, other.m_file);  // the other one lets go of ours at its end
    return *this;
}

HeldFile::~HeldFile() {
    if (!m_file) return;
    const std::scoped_lock lock(theRegister().guard);
    const auto found = theRegister().files.find(*m_file);
    if (--found->second.count > 0) return;
    for (const int descriptor : found->second.closedLater) ::close(descriptor);
    theRegister().files.erase(found);
}

bool HeldFile::isHeld(FileIdentity file) {
    const std::scoped_lock lock(theRegister().guard);
    return theRegister().files.contains(file);
}

bool HeldFile::isHeld(const std::string& path) {
    const auto file = identityOf(path);
    return file && isHeld(*file);
}

bool closeKeepingLocks(int descriptor) noexcept {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) return ::close(descriptor) == 0;
    const std::scoped_lock lock(theRegister().guard);
    const auto found = theRegister().files.find({status.st_dev, status.st_ino});
    if (found == theRegister().files.end()) return ::close(descriptor) == 0;
    try {
        found->second.closedLater.push_back(descriptor);
    } catch (const std::bad_alloc&) {
        return true;  // it stays open, which is worth less than the locks
    }
    return true;
}

}  // namespace platform
