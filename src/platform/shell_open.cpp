#include "platform/shell_open.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <utility>

#include "platform/files.h"

namespace platform {
namespace {

constexpr std::string_view linkEnding = ".url";

ShellOpener& opener() {
    static ShellOpener function;
    return function;
}

bool sameLetters(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

bool isLinkFile(std::string_view target) {
    return target.size() > linkEnding.size() &&
           sameLetters(target.substr(target.size() - linkEnding.size()), linkEnding);
}

// Between fork and exec only calls that are safe there.
[[noreturn]] void becomeProgram(char* const arguments[], const char* folder, int report) {
    ::setsid();
    const pid_t grandchild = ::fork();
    if (grandchild > 0) ::_exit(0);  // it belongs to nobody now, so that no zombie stays
    if (grandchild == 0) {
        if (*folder && ::chdir(folder) != 0) errno = 0;
        ::execvp(arguments[0], arguments);
    }
    const int reason = errno;
    if (::write(report, &reason, sizeof reason) < 0) ::_exit(126);
    ::_exit(127);
}

// Starts a program on its own feet. Not through QProcess, whose arguments could not carry every file name.
bool startDetached(const char* program, std::string target, const std::string& folder) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return false;
    std::string name = program;
    char* const arguments[] = {name.data(), target.data(), nullptr};
    const pid_t child = ::fork();
    if (child == 0) becomeProgram(arguments, folder.c_str(), ends[1]);
    ::close(ends[1]);
    // The pipe closes without a word when the program has started.
    int reason = 0;
    ssize_t got = -1;
    if (child > 0) {
        while ((got = ::read(ends[0], &reason, sizeof reason)) < 0 && errno == EINTR) {
        }
        while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    ::close(ends[0]);
    return got == 0;
}

bool openOnDesktop(const std::string& target, const std::string& folder) {
    if (target.empty() || target.starts_with('-')) return false;
    return startDetached("xdg-open", target, folder);
}

}  // namespace

bool ShellExecute(const std::string& target, const std::string& folder) {
    std::string opened = target;
    if (isLinkFile(target) && FileExists(target)) {
        opened = linkTarget(target);
        if (opened.empty()) return false;
    }
    return opener() ? opener()(opened, folder) : openOnDesktop(opened, folder);
}

void setShellOpener(ShellOpener function) {
    opener() = std::move(function);
}

std::string linkTarget(const std::string& linkFile) {
    constexpr std::string_view key = "URL=";
    std::ifstream in(linkFile, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (line.size() > key.size() && sameLetters(std::string_view(line).substr(0, key.size()), key))
            return line.substr(key.size());
    }
    return {};
}

}  // namespace platform
