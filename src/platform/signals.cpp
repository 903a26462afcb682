#include "platform/signals.h"

#include <csignal>

namespace platform {

bool isSignalIgnored(int number) {
    struct sigaction now {};
    return ::sigaction(number, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
}

}  // namespace platform
