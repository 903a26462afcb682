#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "support/temporary_folder.h"

namespace test {

// What a program is run under.
struct Conditions {
    std::string output = "/dev/null";
    std::vector<std::string> environment{};  // NAME=VALUE
};

// A program under way; it is waited for at the end.
class Program {
  public:
    explicit Program(std::vector<std::string> command, const Conditions& conditions = {}) : m_child(fork()) {
        if (m_child == 0) become(command, conditions);
    }
    ~Program() { wait(); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Its exit status; 128 and the number of the signal that ended it.
    int wait() {
        int status = 0;
        if (m_child > 0 && waitpid(std::exchange(m_child, 0), &status, 0) > 0)
            m_status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return m_status;
    }
    // True when it was stopped, and not ended, meanwhile.
    [[nodiscard]] bool waitForStop() const {
        siginfo_t info{};
        return m_child > 0 &&
               waitid(P_PID, static_cast<id_t>(m_child), &info, WSTOPPED | WEXITED | WNOWAIT) == 0 &&
               info.si_code == CLD_STOPPED;
    }
    void send(int signal) const {
        if (m_child > 0) ::kill(m_child, signal);
    }
    [[nodiscard]] bool isRunning() const {
        siginfo_t info{};
        return m_child > 0 &&
               waitid(P_PID, static_cast<id_t>(m_child), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
               info.si_pid == 0;
    }

  private:
    [[noreturn]] static void become(std::vector<std::string>& command, const Conditions& conditions) {
        std::vector<char*> argv;
        for (std::string& word : command) argv.push_back(word.data());
        argv.push_back(nullptr);
        const int output = open(conditions.output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(output, STDOUT_FILENO);
        dup2(output, STDERR_FILENO);
        for (const int each : {SIGINT, SIGTERM, SIGHUP}) std::signal(each, SIG_DFL);
        for (const std::string& setting : conditions.environment) putenv(const_cast<char*>(setting.c_str()));
        execv(argv[0], argv.data());
        _exit(127);
    }

    pid_t m_child;
    int m_status = -1;
};

inline int statusOf(const std::vector<std::string>& command, const Conditions& conditions = {}) {
    return Program(command, conditions).wait();
}
inline int cliStatus(std::vector<std::string> words, const Conditions& conditions = {}) {
    words.insert(words.begin(), ZARQUELIN_CLI);
    return statusOf(words, conditions);
}

struct Told {
    int status;
    std::string text;  // on both streams
};
inline Told cliTells(const std::vector<std::string>& words) {
    const TemporaryFolder folder;
    const int status = cliStatus(words, {.output = folder / "told"});
    return {status, readFile(folder / "told")};
}

}  // namespace test
