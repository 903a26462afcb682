#include "mount/workers.h"

#include <csignal>
#include <thread>

namespace mount {

void Workers::start(std::size_t threads) {
    // Signals are for the thread that waits for requests.
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const auto restored =
        std::shared_ptr<void>(nullptr, [&before](void*) { pthread_sigmask(SIG_SETMASK, &before, nullptr); });
    for (std::size_t i = 0; i < threads; ++i) {
        std::thread([shared = m_shared] { work(shared); }).detach();
        const std::scoped_lock guard(m_shared->lock);
        ++m_shared->threads;
    }
}

void Workers::add(Job job) {
    {
        const std::scoped_lock guard(m_shared->lock);
        m_shared->jobs.push(std::move(job));
    }
    m_shared->changed.notify_one();
}

bool Workers::finish(std::chrono::milliseconds patience) {
    std::unique_lock guard(m_shared->lock);
    m_shared->ending = true;
    m_shared->jobs = {};
    m_shared->changed.notify_all();
    return m_shared->changed.wait_for(guard, patience, [this] { return m_shared->threads == 0; });
}

void Workers::work(const std::shared_ptr<Shared>& shared) {
    std::unique_lock guard(shared->lock);
    while (true) {
        shared->changed.wait(guard, [&] { return shared->ending || !shared->jobs.empty(); });
        if (shared->ending) break;
        const Job job = std::move(shared->jobs.front());
        shared->jobs.pop();
        guard.unlock();
        job();
        guard.lock();
    }
    --shared->threads;
    shared->changed.notify_all();
}

}  // namespace mount
