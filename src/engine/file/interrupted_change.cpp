#include "engine/file/interrupted_change.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace engine {
namespace {

// The first bytes of a rollback journal.
constexpr std::array<unsigned char, 8> journalMark{0xd9, 0xd5, 0x05, 0xf9, 0x20, 0xa1, 0x63, 0xd7};

bool isJournal(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
    if (file < 0) return false;
    std::array<unsigned char, journalMark.size()> found{};
    const bool whole = ::read(file, found.data(), found.size()) == static_cast<ssize_t>(found.size());
    ::close(file);
    return whole && found == journalMark;
}

}  // namespace

void forgetInterruptedChange(const std::string& path) {
    const std::string journal = path + "-journal";
    if (isJournal(journal)) ::unlink(journal.c_str());
}

}  // namespace engine
