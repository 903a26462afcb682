#include "platform/waiting.h"

#include <chrono>
#include <future>
#include <system_error>
#include <utility>

namespace platform {
namespace {

constexpr std::chrono::milliseconds betweenSigns(50);
thread_local Waiting* newest = nullptr;

std::future<void> begun(const std::function<void()>& call) {
    try {
        return std::async(std::launch::async, call);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, call);
    }
}

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
    auto done = begun(call);
    while (done.wait_for(betweenSigns) == std::future_status::timeout) giveSign();
    done.get();
}

}  // namespace platform
