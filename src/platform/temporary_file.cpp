#include "platform/temporary_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <mutex>
#include <set>
#include <string_view>
#include <utility>

#include "platform/signals.h"

namespace platform {
namespace {

constexpr std::string_view namePrefix = ".zarquelin-";
constexpr std::string_view nameTail = "XXXXXX";

// Of a database that is being written.
std::string journalOf(const std::string& path) {
    return path + "-journal";
}

// What a signal handler may read: nothing in it moves or is freed.
struct Slot {
    std::atomic<bool> used = false;
    std::array<char, PATH_MAX> path{};
    std::array<char, PATH_MAX> journal{};
};
std::array<Slot, 16> theSlots;
std::mutex slotsGuard;

// -1 when there is no room: then only a signal leaves the file behind, for the next run to take away.
int enter(const std::string& path, const std::string& journal) {
    const std::scoped_lock lock(slotsGuard);
    const auto free = std::ranges::find_if(theSlots, [](const Slot& slot) { return !slot.used; });
    if (free == theSlots.end() || journal.size() >= free->journal.size()) return -1;
    std::memcpy(free->path.data(), path.c_str(), path.size() + 1);
    std::memcpy(free->journal.data(), journal.c_str(), journal.size() + 1);
    free->used = true;
    return static_cast<int>(free - theSlots.begin());
}

void leave(int slot) {
    if (slot >= 0) theSlots[static_cast<std::size_t>(slot)].used = false;
}

// For as long as it lives, this thread's signals wait: between the making of a file and its entry one would
// leave it behind.
class SignalsWait {
  public:
    SignalsWait() {
        sigset_t all;
        sigfillset(&all);
        ::pthread_sigmask(SIG_BLOCK, &all, &m_before);
    }
    ~SignalsWait() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SignalsWait(const SignalsWait&) = delete;
    SignalsWait& operator=(const SignalsWait&) = delete;

  private:
    sigset_t m_before{};
};

void removeAndEnd(int signal) {
    removeTemporaries();
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

bool isTemporaryName(std::string_view name) {
    return name.size() == namePrefix.size() + nameTail.size() && name.starts_with(namePrefix);
}

void removeOrphan(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file < 0) return;
    struct stat status {};
    const bool isOurs =
        ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
    if (isOurs && claimed(file)) {
        ::unlink(journalOf(path).c_str());  // first: alone it would not be known
        ::unlink(path.c_str());
    }
    ::close(file);
}

// Once a folder and run: copying many files into one folder must not read it each time.
void removeOrphans(const std::string& folder) {
    static std::mutex guard;
    static std::set<std::string> seen;
    {
        const std::scoped_lock lock(guard);
        if (!seen.insert(folder).second) return;
    }
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), ::closedir);
    if (!entries) return;
    while (const dirent* entry = ::readdir(entries.get()))
        if (isTemporaryName(entry->d_name)) removeOrphan(folder + '/' + entry->d_name);
}

bool flushed(int descriptor) {
    return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
}

// Between its making and its lock another program may have taken the file for an orphan.
bool isStillThere(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && status.st_nlink > 0;
}

}  // namespace

bool claimed(int descriptor) {
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

FileResult<int> namelessFile() {
    std::error_code failure;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(failure);
    if (failure) return std::unexpected(FileError{FileError::pathNotFound, failure.message()});
    std::string path = folder / "zarquelin-XXXXXX";
    const int file = ::mkostemp(path.data(), O_CLOEXEC);
    if (file < 0) return systemFailure(path);
    ::unlink(path.c_str());
    return file;
}

FileResult<TemporaryFile> TemporaryFile::beside(const std::string& target) {
    const std::string folder = folderOf(target);
    if (!FolderExists(folder))
        return std::unexpected(FileError{FileError::pathNotFound, folder + ": no such folder"});
    removeOrphans(folder);
    for (;;) {
        TemporaryFile made(folder + '/' + std::string(namePrefix) + std::string(nameTail), target);
        if (!made.create()) return systemFailure(target);
        const bool locked = claimed(made.m_descriptor);
        if (!locked || isStillThere(made.m_descriptor)) return made;
    }
}

TemporaryFile::TemporaryFile(std::string pattern, std::string target)
    : m_path(std::move(pattern)), m_journal(journalOf(m_path)), m_target(std::move(target)) {}

// Needs no memory, so that what is made is never forgotten.
bool TemporaryFile::create() {
    const SignalsWait wait;
    m_descriptor = ::mkostemp(m_path.data(), O_CLOEXEC);
    if (m_descriptor < 0) {
        m_path.clear();
        return false;
    }
    m_journal.replace(0, m_path.size(), m_path);
    m_registered = enter(m_path, m_journal);
    return true;
}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : m_path(std::exchange(other.m_path, {})),
      m_journal(std::move(other.m_journal)),
      m_target(std::move(other.m_target)),
      m_descriptor(std::exchange(other.m_descriptor, -1)),
      m_registered(std::exchange(other.m_registered, -1)) {}

TemporaryFile::~TemporaryFile() {
    if (!m_path.empty()) {
        ::unlink(m_journal.c_str());  // of a database that failed
        ::unlink(m_path.c_str());
    }
    leave(m_registered);
    if (m_descriptor >= 0) ::close(m_descriptor);
}

FileResult<> TemporaryFile::flush() const {
    if (!flushed(m_descriptor)) return systemFailure(m_target);
    return {};
}

FileResult<> TemporaryFile::putInPlace() {
    if (auto whole = flush(); !whole) return whole;
    if (std::rename(m_path.c_str(), m_target.c_str()) != 0) return systemFailure(m_target);
    m_path.clear();
    flushFolder(folderOf(m_target));
    return {};
}

RegisteredName::RegisteredName(const std::string& path) : m_registered(enter(path, journalOf(path))) {}

RegisteredName::~RegisteredName() {
    leave(m_registered);
}

void removeTemporaries() {
    for (const Slot& slot : theSlots) {
        if (!slot.used) continue;
        ::unlink(slot.journal.data());
        ::unlink(slot.path.data());
    }
}

void removeTemporariesOnSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        if (!isSignalIgnored(signal)) std::signal(signal, removeAndEnd);
}

}  // namespace platform
