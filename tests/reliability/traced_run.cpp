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
#include <map>

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
            ptrace(PTRACE_SETOPTIONS, m_child, nullptr,
                   PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL) != 0) {
            m_run.possible = false;
            return m_run;
        }
        m_start = Clock::now();
        m_calls.try_emplace(m_child);
        ptrace(PTRACE_SYSCALL, m_child, nullptr, 0);
        for (pid_t thread = 0; (thread = waitpid(-1, &status, __WALL)) > 0;) {
            if (WIFSTOPPED(status)) {
                goOn(thread, WSTOPSIG(status));
            } else if (thread == m_child) {
                break;
            }
        }
        m_run.end = ownTime();
        if (WIFEXITED(status)) m_run.status = WEXITSTATUS(status);
        return m_run;
    }

  private:
    [[nodiscard]] std::chrono::duration<double> ownTime() const { return Clock::now() - m_start - m_waited; }

    void goOn(pid_t thread, int signal) {
        const bool isNew = m_calls.try_emplace(thread).second;
        const bool atCall = signal == (SIGTRAP | 0x80);
        const bool isOurs = atCall || signal == SIGTRAP || (isNew && signal == SIGSTOP);
        if (atCall && !passCall(thread, m_calls[thread])) {
            kill(m_child, SIGKILL);
            m_run.killed = true;
        }
        ptrace(PTRACE_SYSCALL, thread, nullptr, isOurs ? 0 : signal);
    }

    // What a thread asks of the system just now.
    struct Call {
        bool changes = false;
        bool waits = false;
        Clock::time_point entered;
    };

    // False at the step at which the program is to die.
    bool passCall(pid_t thread, Call& call) {
        __ptrace_syscall_info info{};
        if (ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof info, &info) <= 0) return true;
        if (info.op == PTRACE_SYSCALL_INFO_ENTRY) {
            call = {changesFiles(info.entry.nr, info.entry.args), waitsForTheDisk(info.entry.nr),
                    Clock::now()};
            if (looksAtAnEntry(info.entry.nr, info.entry.args)) m_run.looks.push_back(ownTime());
        } else if (call.waits) {
            m_waited += Clock::now() - call.entered;
        }
        return !call.changes || ++m_run.steps != m_lastStep;
    }

    pid_t m_child;
    int m_lastStep;
    TracedRun m_run;
    Clock::time_point m_start;
    Clock::duration m_waited{};
    std::map<pid_t, Call> m_calls;  // by thread
};

}  // namespace

TracedRun runUntilStep(const Words& command, int step) {
    const pid_t child = fork();
    if (child == 0) becomeWatched(command);
    return Watch(child, step).run();
}

}  // namespace test
