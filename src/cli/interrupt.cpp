#include "cli/interrupt.h"

#include <csignal>

namespace cli {
namespace {

volatile std::sig_atomic_t caughtSignal = 0;

void catchSignal(int number) {
    caughtSignal = number;
}

constexpr int watched[]{SIGINT, SIGTERM};

}  // namespace

InterruptGuard::InterruptGuard() {
    caughtSignal = 0;
    struct sigaction action {};
    action.sa_handler = catchSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (const int number : watched) sigaction(number, &action, nullptr);
}

InterruptGuard::~InterruptGuard() {
    for (const int number : watched) std::signal(number, SIG_DFL);
}

bool wasInterrupted() {
    return caughtSignal != 0;
}

int statusOfInterrupt() {
    return 128 + caughtSignal;
}

}  // namespace cli
