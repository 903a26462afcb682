#pragma once

#include <functional>
#include <optional>

namespace platform {

// What waits for long calls on this thread, such as a statement of the engine: for as long as the object
// lives, they call it every few milliseconds, some with the share of their work that is done, from 0 to 1. It
// must leave alone what the call works on. Of several, the newest is called.
class Waiting {
  public:
    using Sign = std::function<void(std::optional<double> share)>;
    explicit Waiting(Sign sign);
    ~Waiting();
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    // For the long calls: costs next to nothing when nobody waits, and never fails.
    static void giveSign(std::optional<double> share = {}) noexcept;
    // For a call that cannot give signs itself. When somebody waits it runs on a thread of its own, unless
    // none is to be had.
    static void giveSignsDuring(const std::function<void()>& call);

  private:
    Sign m_sign;
    Waiting* m_before;
};

}  // namespace platform
