#include "platform/waiting.h"

#include <chrono>
#include <utility>

#include "platform/other_thread.h"

namespace platform {
namespace {

constexpr std::chrono::milliseconds betweenSigns(50);
thread_local Waiting* newest = nullptr;

}  // namespace

Waiting::Waiting(Sign sign) : m_sign(std::move(sign)), m_before(std::exchange(newest, this)) {}

Waiting::~Waiting() {
    newest = m_before;
}

void Waiting::giveSign(std::optional<double> share) noexcept {
    if (!newest) return;
    try {
        newest->m_sign(share);
    } catch (...) {
        return;  // a sign that is not seen is no reason to break off the work
    }
}

void Waiting::giveSignsDuring(const std::function<void()>& call) {
    if (!newest) return call();
    auto done = onOtherThread(call);
    while (done.wait_for(betweenSigns) == std::future_status::timeout) giveSign();
    done.get();
}

}  // namespace platform
