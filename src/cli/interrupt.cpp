#include "cli/interrupt.h"

#include <unistd.h>

#include <csignal>
#include <string_view>

#include "cli/progress.h"
#include "platform/signals.h"
#include "platform/temporary_file.h"

namespace cli {
namespace {

constexpr core::Bilingual closingLine{"zarquelin-cli: interrumpido\n", "zarquelin-cli: interrupted\n"};
constexpr std::string_view eraseLine = "\r\x1b[K";
constexpr int watched[]{SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t caughtSignal = 0;
volatile std::sig_atomic_t onTerminal = 0;
std::string_view closing;  // empty until a language is known

void writeAll(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
        if (written <= 0) return;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

void raiseFlag(int number) {
    caughtSignal = number;
}

void endNow(int number) {
    platform::removeTemporaries();
    if (onTerminal) writeAll(eraseLine);
    writeAll(closing);
    ::_exit(128 + number);
}

void handle(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : watched)
        if (!platform::isSignalIgnored(number)) sigaction(number, &action, nullptr);
}

// The first signal raises the flag, and the second ends the program.
void raiseFlagOnce(int number) {
    raiseFlag(number);
    std::signal(number, closing.empty() ? SIG_DFL : endNow);
}

}  // namespace

void endOnInterrupt(core::Language language) {
    closing = closingLine.in(language);
    onTerminal = isatty(STDERR_FILENO);
    handle(endNow);
}

InterruptGuard::InterruptGuard() {
    caughtSignal = 0;
    handle(raiseFlagOnce);
}

InterruptGuard::~InterruptGuard() {
    handle(closing.empty() ? SIG_DFL : endNow);
}

bool wasInterrupted() {
    return caughtSignal != 0;
}

int statusOfInterrupt() {
    return 128 + caughtSignal;
}

int interrupted(core::Language language) {
    hideProgress();
    writeAll(closingLine.in(language));
    return statusOfInterrupt();
}

}  // namespace cli
