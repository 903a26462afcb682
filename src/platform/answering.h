#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace platform {

// Whether a look at a folder comes back in time. It is done on a thread of its own, which is left behind when
// the look hangs; while it does, the same folder is not looked at again. `look` stands in for stat() in
// tests.
[[nodiscard]] bool answersInTime(const std::string& folder,
                                 std::chrono::milliseconds patience = std::chrono::seconds(1),
                                 std::function<void(const std::string&)> look = {});

}  // namespace platform
