#include "platform/answering.h"

#include <sys/stat.h>

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

namespace platform {
namespace {

struct Look {
    std::mutex guard;
    std::condition_variable done;
    bool isDone = false;
};

void statOnce(const std::string& folder) {
    struct stat status {};
    (void)::stat(folder.c_str(), &status);
}

}  // namespace

bool answersInTime(const std::string& folder, std::chrono::milliseconds patience,
                   std::function<void(const std::string&)> look) {
    static std::mutex guard;
    static std::map<std::string, std::shared_ptr<Look>> hanging;
    const std::scoped_lock oneAtATime(guard);
    std::shared_ptr<Look>& last = hanging[folder];
    if (last) {
        const std::scoped_lock lock(last->guard);
        if (!last->isDone) return false;
    }
    const auto current = std::make_shared<Look>();
    last = current;
    try {
        std::thread([current, folder, look = look ? std::move(look) : statOnce] {
            look(folder);
            const std::scoped_lock lock(current->guard);
            current->isDone = true;
            current->done.notify_one();
        }).detach();
    } catch (const std::system_error&) {
        last.reset();
        return false;  // no thread is to be had, and nothing may hang
    }
    std::unique_lock lock(current->guard);
    return current->done.wait_for(lock, patience, [&] { return current->isDone; });
}

}  // namespace platform
