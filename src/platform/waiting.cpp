#include "platform/waiting.h"

#include <utility>

namespace platform {
namespace {

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

}  // namespace platform
