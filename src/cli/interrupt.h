#pragma once

#include "core/language.h"

namespace cli {

// From here on Ctrl-C, or a request to terminate, ends the program with a closing line and 128 and the
// signal's number as its status, as shells have it.
void endOnInterrupt(core::Language language);

// While it lives, the first Ctrl-C only raises a flag, so that work ends where it can; a second one ends the
// program. One at a time.
class InterruptGuard {
  public:
    InterruptGuard();
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;
};

[[nodiscard]] bool wasInterrupted();
[[nodiscard]] int statusOfInterrupt();  // 128 and the signal's number

// Writes the closing line of work that ended where it could, and gives that status.
int interrupted(core::Language language);

}  // namespace cli
