#include "reliability/traced_run.h"

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>

namespace test {
namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void becomeWatched(const Words& command) {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    setenv("ASAN_OPTIONS", "detect_leaks=0", 1);  // which needs to watch the process itself
    std::vector<char*> argv;
    for (const std::string& word : command) argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(126);
    execv(argv[0], argv.data());
    _exit(127);
}

bool waitsForTheDisk(std::uint64_t call) {
    return call == SYS_fsync || call == SYS_fdatasync;
}

bool changesFiles(std::uint64_t call, const std::uint64_t* arguments) {
    static constexpr std::uint64_t calls[]{SYS_pwrite64,        SYS_pwritev,  SYS_writev,   SYS_ftruncate,
                                           SYS_unlink,          SYS_unlinkat, SYS_rename,   SYS_renameat,
                                           SYS_renameat2,       SYS_link,     SYS_chmod,    SYS_fchmod,
                                           SYS_copy_file_range, SYS_fsync,    SYS_fdatasync};
    if (call == SYS_write) return arguments[0] > STDERR_FILENO;
    if (call == SYS_openat) return (arguments[2] & O_CREAT) != 0;
    return std::ranges::find(calls, call) != std::end(calls);
}

// The walk asks for its entries relative to their folder and does not follow them.
bool looksAtAnEntry(std::uint64_t call, const std::uint64_t* arguments) {
    return call == SYS_newfstatat && static_cast<int>(arguments[0]) != AT_FDCWD &&
           (arguments[3] & AT_SYMLINK_NOFOLLOW) != 0;
}

class Watch {
  public:
    Watch(pid_t child, int step) : m_child(child), m_lastStep(step) {}

    TracedRun run() {
        int status = 0;
        waitpid(m_child, &status, 0);
        if (!WIFSTOPPED(status) ||
            ptrace(PTRACE_SETOPTIONS, m_child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) != 0) {
            m_run.possible = false;
            return m_run;
        }
        m_start = Clock::now();
        int signal = 0;
        while (ptrace(PTRACE_SYSCALL, m_child, nullptr, signal) == 0) {
            if (waitpid(m_child, &status, 0) < 0 || !WIFSTOPPED(status)) break;
            const bool atCall = WSTOPSIG(status) == (SIGTRAP | 0x80);
            signal = atCall || WSTOPSIG(status) == SIGTRAP ? 0 : WSTOPSIG(status);
            if (atCall && !passCall()) {
                kill(m_child, SIGKILL);
                waitpid(m_child, &status, 0);
                m_run.killed = true;
            }
        }
        m_run.end = ownTime();
        if (WIFEXITED(status)) m_run.status = WEXITSTATUS(status);
        return m_run;
    }

  private:
    [[nodiscard]] std::chrono::duration<double> ownTime() const { return Clock::now() - m_start - m_waited; }

    // False at the step at which the program is to die.
    bool passCall() {
        __ptrace_syscall_info info{};
        if (ptrace(PTRACE_GET_SYSCALL_INFO, m_child, sizeof info, &info) <= 0) return true;
        if (info.op == PTRACE_SYSCALL_INFO_ENTRY) {
            m_changes = changesFiles(info.entry.nr, info.entry.args);
            m_waits = waitsForTheDisk(info.entry.nr);
            m_entered = Clock::now();
            if (looksAtAnEntry(info.entry.nr, info.entry.args)) m_run.looks.push_back(ownTime());
        } else if (m_waits) {
            m_waited += Clock::now() - m_entered;
        }
        return !m_changes || ++m_run.steps != m_lastStep;
    }

    pid_t m_child;
    int m_lastStep;
    TracedRun m_run;
    Clock::time_point m_start, m_entered;
    Clock::duration m_waited{};
    bool m_changes = false;
    bool m_waits = false;
};

}  // namespace

TracedRun runUntilStep(const Words& command, int step) {
    const pid_t child = fork();
    if (child == 0) becomeWatched(command);
    return Watch(child, step).run();
}

}  // namespace test
