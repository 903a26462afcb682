#pragma once

namespace cli {

// While it lives, the first Ctrl-C (or a request to terminate) only raises a flag; a second one ends the
// program as usual. One at a time.
class InterruptGuard {
  public:
    InterruptGuard();
    ~InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;
};

[[nodiscard]] bool wasInterrupted();
[[nodiscard]] int statusOfInterrupt();  // 128 and the signal's number, as shells have it

}  // namespace cli
