#pragma once

#include <QString>
#include <deque>
#include <functional>
#include <vector>

#include "frame/messages.h"

namespace test {

// Keeps every message box instead of showing it, and answers questions from a script ("no" when it has run
// out).
class RecordingMessages : public frame::Messages {
  public:
    struct Shown {
        QString text;
        QString title;
        frame::MessageStyle style = frame::MessageStyle::Exclamation;
        bool operator==(const Shown&) const = default;
    };

    void show(const QString& text, const QString& title, frame::MessageStyle style) override {
        shown.push_back({text, title, style});
        if (onShow) onShow(shown.back());
    }
    bool askYesNo(const QString& text, const QString& title) override {
        asked.push_back({text, title, frame::MessageStyle::Exclamation});
        if (answers.empty()) return false;
        const bool answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::vector<Shown> shown;
    std::vector<Shown> asked;
    std::deque<bool> answers;
    std::function<void(const Shown&)>
        onShow;  // what the user does while the box stands, e.g. insert the disc
};

}  // namespace test
