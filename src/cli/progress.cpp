#include "cli/progress.h"

#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <system_error>
#include <thread>

namespace cli {
namespace {

using namespace std::chrono_literals;
constexpr auto progressAfter = 1s;
constexpr auto progressEvery = 200ms;

// Beside the work a thread writes the line, since a single statement may take long and calls nobody.
struct Line {
    std::mutex mutex;
    std::condition_variable changed;
    std::string title;
    std::string text;
    std::chrono::steady_clock::time_point begun;
    bool wanted = false;
    bool shown = false;
    std::thread writer;

    void write() {
        std::unique_lock lock(mutex);
        for (auto wait = std::chrono::milliseconds(progressAfter);
             !changed.wait_for(lock, wait, [this] { return !wanted; }); wait = progressEvery) {
            const auto seconds =
                std::chrono::floor<std::chrono::seconds>(std::chrono::steady_clock::now() - begun);
            // Without a copy of the text: nobody would catch it if there was no memory for one.
            if (text.empty())
                std::fprintf(stderr, "\r%s: %lld s\x1b[K", title.c_str(),
                             static_cast<long long>(seconds.count()));
            else
                std::fprintf(stderr, "\r%s: %s\x1b[K", title.c_str(), text.c_str());
            shown = true;
        }
    }

    void hide() {
        const std::lock_guard lock(mutex);
        wanted = false;
        changed.notify_all();
        if (shown) std::fputs("\r\x1b[K", stderr);
        shown = false;
    }
};

Line& line() {
    static Line only;
    return only;
}

}  // namespace

Progress::Progress(std::string title) {
    if (!isatty(STDERR_FILENO)) return;
    line().title = std::move(title);
    line().begun = std::chrono::steady_clock::now();
    line().wanted = true;
    try {
        line().writer = std::thread([] { line().write(); });
    } catch (const std::system_error&) {
        line().wanted = false;  // without a thread there is no line
    }
}

Progress::~Progress() {
    hideProgress();
    if (line().writer.joinable()) line().writer.join();
}

void showProgress(std::string text) {
    const std::lock_guard lock(line().mutex);
    if (line().wanted) line().text = std::move(text);
}

void hideProgress() {
    line().hide();
}

}  // namespace cli
