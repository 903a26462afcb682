#pragma once

#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <expected>
#include <functional>
#include <mutex>
#include <string>
#include <unordered_map>

#include "core/medium.h"

namespace mount {

// Opens catalogued files on their media, wherever these are now. May be used from several threads; a call
// takes as long as the medium does.
class MediumFiles {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    explicit MediumFiles(core::DriveSource drives, Clock clock = std::chrono::steady_clock::now)
        : m_drives(std::move(drives)), m_clock(std::move(clock)) {}

    // A descriptor to read from, which the caller closes; or an errno: ENOMEDIUM when the file is in no
    // drive. One that was not found is looked for again after a second at the earliest.
    [[nodiscard]] std::expected<int, int> open(const core::CataloguedFile& file);

    // Files of this file system count as not found: they are the catalogue's own.
    void exclude(dev_t fileSystem) { m_excluded = fileSystem; }

  private:
    using Moment = std::chrono::steady_clock::time_point;

    [[nodiscard]] bool wasMissedLately(const std::string& key);
    void noteMissing(const std::string& key);

    core::DriveSource m_drives;
    Clock m_clock;
    std::atomic<dev_t> m_excluded{0};
    std::mutex m_lock;
    std::unordered_map<std::string, Moment> m_missing;  // and when it was last looked for
};

}  // namespace mount
