#pragma once

#include <future>
#include <system_error>

namespace platform {

// Does a work on a thread of its own or, where none is to be had, on that of whoever waits for its result.
template <class Work>
[[nodiscard]] auto onOtherThread(const Work& work) {
    try {
        return std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, work);
    }
}

}  // namespace platform
