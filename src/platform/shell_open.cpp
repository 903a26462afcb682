#include "platform/shell_open.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <sstream>
#include <utility>

#include "platform/files.h"

namespace platform {
namespace {

constexpr std::string_view linkEnding = ".url";
constexpr std::array<std::string_view, 4> followedSchemes{"http:", "https:", "ftp:", "mailto:"};

// Desktops know an entry by its name or by its first line, which may stand behind a few bytes.
constexpr std::array<std::string_view, 2> entryEndings{".desktop", ".kdelnk"};
constexpr std::array<std::string_view, 2> entryHeads{"[Desktop Entry]", "[KDE Desktop Entry]"};
constexpr std::size_t headLength = 64;
constexpr std::size_t longestLink = 64 * 1024;  // a file of that name may be of any size

ShellOpener& opener() {
    static ShellOpener function;
    return function;
}

bool sameLetters(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

bool endsIn(std::string_view target, std::string_view ending) {
    return target.size() > ending.size() && sameLetters(target.substr(target.size() - ending.size()), ending);
}

bool isFollowed(std::string_view url) {
    return std::ranges::any_of(followedSchemes, [url](std::string_view scheme) {
        return url.size() > scheme.size() && sameLetters(url.substr(0, scheme.size()), scheme);
    });
}

std::string beginning(const std::string& file, std::size_t length) {
    std::string bytes(length, '\0');
    std::ifstream in(file, std::ios::binary);
    in.read(bytes.data(), static_cast<std::streamsize>(length));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    return bytes;
}

bool isDesktopEntry(const std::string& file) {
    const auto endsInIt = [&](std::string_view ending) { return endsIn(file, ending); };
    if (std::ranges::any_of(entryEndings, endsInIt)) return true;
    const std::string head = beginning(file, headLength);
    return std::ranges::any_of(entryHeads,
                               [&](std::string_view text) { return head.find(text) != head.npos; });
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
    if (FileExists(target)) {
        if (!isHarmless(target)) return false;
        if (endsIn(target, linkEnding)) opened = linkTarget(target);
    }
    return opener() ? opener()(opened, folder) : openOnDesktop(opened, folder);
}

void setShellOpener(ShellOpener function) {
    opener() = std::move(function);
}

bool isHarmless(const std::string& file) {
    return endsIn(file, linkEnding) ? isFollowed(linkTarget(file)) : !isDesktopEntry(file);
}

std::string linkTarget(const std::string& linkFile) {
    constexpr std::string_view key = "URL=";
    std::istringstream in(beginning(linkFile, longestLink));
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (line.size() > key.size() && sameLetters(std::string_view(line).substr(0, key.size()), key))
            return line.substr(key.size());
    }
    return {};
}

}  // namespace platform
