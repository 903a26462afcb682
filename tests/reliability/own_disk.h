#pragma once

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <string>

#include "support/temporary_folder.h"

namespace test {

// A small disk of the test's own, seen by this process and the programs it starts. Needs the right to mount,
// or a system that gives it to anyone within a name space of their own.
class OwnDisk {
  public:
    explicit OwnDisk(int megabytes) {
        if (!enterNamespace()) return;
        const std::string size = "size=" + std::to_string(megabytes) + "m,mode=0777";
        m_mounted = mount("none", m_folder.path().c_str(), "tmpfs", 0, size.c_str()) == 0;
    }
    ~OwnDisk() {
        if (m_mounted) umount2(m_folder.path().c_str(), MNT_DETACH);
    }
    OwnDisk(const OwnDisk&) = delete;
    OwnDisk& operator=(const OwnDisk&) = delete;

    [[nodiscard]] bool isMounted() const { return m_mounted; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return m_folder / name; }

    // Takes all space but so much.
    void leaveFree(unsigned kilobytes) const {
        giveAll();
        struct statvfs disk {};
        statvfs(m_folder.path().c_str(), &disk);
        const auto free = static_cast<off_t>(disk.f_bavail * disk.f_frsize);
        const int ballast = open((m_folder / "ballast").c_str(), O_WRONLY | O_CREAT, 0600);
        if (posix_fallocate(ballast, 0, std::max<off_t>(free - off_t{kilobytes} * 1024, 1)) != 0) giveAll();
        close(ballast);
    }
    void giveAll() const { unlink((m_folder / "ballast").c_str()); }

    [[nodiscard]] bool makeReadOnly() const {
        return mount("none", m_folder.path().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }

  private:
    static bool enterNamespace() {
        static const bool entered = [] {
            const std::string user = "0 " + std::to_string(geteuid()) + " 1";
            if (unshare(CLONE_NEWNS) != 0) {
                if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
                writeFile("/proc/self/uid_map", user);
            }
            return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        }();
        return entered;
    }

    TemporaryFolder m_folder;
    bool m_mounted = false;
};

}  // namespace test
