#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <queue>

namespace mount {

// A few threads for what may take as long as a medium does, so that a dead one holds up nobody else. A job
// must not throw.
class Workers {
  public:
    using Job = std::function<void()>;

    Workers() : m_shared(std::make_shared<Shared>()) {}
    ~Workers() { (void)finish({}); }
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    // Throws std::system_error when there is no thread to be had.
    void start(std::size_t threads);
    void add(Job job);
    // Lets the threads end. False when some of them are still held up after the patience.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience);

  private:
    // Outlives this object as long as a thread is held up.
    struct Shared {
        std::mutex lock;
        std::condition_variable changed;
        std::queue<Job> jobs;
        std::size_t threads = 0;
        bool ending = false;
    };
    static void work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> m_shared;
};

}  // namespace mount
