#include "mount/session.h"

#define FUSE_USE_VERSION 312
#include <fuse_log.h>
#include <fuse_lowlevel.h>

#include <fcntl.h>
#include <poll.h>
#include <sched.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "mount/file_system.h"
#include "platform/signals.h"

namespace mount {
namespace {

constexpr std::chrono::seconds patience{2};

// What libfuse said last, without its own name in front.
std::string& lastWord() {
    static std::string text;
    return text;
}

void keepWord(fuse_log_level, const char* format, va_list values) {
    char line[512];
    std::vsnprintf(line, sizeof line, format, values);
    std::string text(line);
    while (text.ends_with('\n')) text.pop_back();
    if (text.starts_with("fuse: ")) text.erase(0, 6);
    lastWord() = std::move(text);
}

struct DestroySession {
    void operator()(fuse_session* session) const { fuse_session_destroy(session); }
};
using SessionHandle = std::unique_ptr<fuse_session, DestroySession>;

// The kernel refuses every change by itself ("ro"), and tells who may read what ("default_permissions").
SessionHandle newSession(FileSystem& files) {
    char program[] = "zarquelin-cli", dashO[] = "-o";
    char options[] = "ro,default_permissions,fsname=zarquelin,subtype=zarquelin";
    char* words[] = {program, dashO, options, nullptr};
    fuse_args arguments FUSE_ARGS_INIT(3, words);
    const fuse_lowlevel_ops operations = FileSystem::operations();
    SessionHandle session(fuse_session_new(&arguments, &operations, sizeof operations, &files));
    fuse_opt_free_args(&arguments);
    return session;
}

std::unexpected<std::string> failed() {
    return std::unexpected(lastWord());
}

// Until the folder is unmounted or a signal ends it. To be woken takes longer than most answers: a walk over
// 400,000 mounted rows takes 5 s when this thread stays awake between its requests, and 9.7 s otherwise.
void answerRequests(fuse_session* session) {
    constexpr std::chrono::microseconds awake{200};
    constexpr int untilNextLook = 1000;  // ms; a signal right before the wait would not end it
    const int device = fuse_session_fd(session);
    // Where that fails, it waits in reading.
    (void)::fcntl(device, F_SETFL, ::fcntl(device, F_GETFL) | O_NONBLOCK);
    fuse_buf request{};
    auto lastRequest = std::chrono::steady_clock::now();
    while (!fuse_session_exited(session)) {
        const int got = fuse_session_receive_buf(session, &request);
        if (got > 0) {
            fuse_session_process_buf(session, &request);
            lastRequest = std::chrono::steady_clock::now();
        } else if (got == -EAGAIN && std::chrono::steady_clock::now() - lastRequest < awake) {
            ::sched_yield();
        } else if (got == -EAGAIN) {
            pollfd waited{.fd = device, .events = POLLIN, .revents = 0};
            (void)::poll(&waited, 1, untilNextLook);
        } else if (got != -EINTR) {
            break;
        }
    }
    std::free(request.mem);
}

}  // namespace

std::expected<void, std::string> Session::serve() const {
    fuse_set_log_func(keepWord);
    // Without it the C library looks at the zone's file for each date: a third of a walk's system calls.
    ::setenv("TZ", ":/etc/localtime", 0);
    FileSystem files(catalogue, folder);
    const SessionHandle session = newSession(files);
    // libfuse leaves a signal alone that the program has another handler for.
    for (const int signal : {SIGHUP, SIGINT, SIGTERM})
        if (!platform::isSignalIgnored(signal)) std::signal(signal, SIG_DFL);
    if (!session || fuse_set_signal_handlers(session.get()) != 0) return failed();
    if (fuse_session_mount(session.get(), folder.c_str()) != 0) return failed();

    // Nothing that a fork would break (threads, locks of the catalogue) is there before.
    bool served = fuse_daemonize(foreground ? 1 : 0) == 0;
    try {
        if (served) files.media().start(session.get());
    } catch (const std::system_error& noThread) {
        lastWord() = noThread.what();
        served = false;
    }
    if (served) answerRequests(session.get());
    fuse_session_unmount(session.get());
    fuse_remove_signal_handlers(session.get());
    // A thread that a dead medium holds would answer to a session that is gone.
    if (!files.media().finish(patience)) std::_Exit(EXIT_SUCCESS);
    if (!served) return failed();
    return {};
}

}  // namespace mount
