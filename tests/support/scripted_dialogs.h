#pragma once

#include <QString>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "frame/dialogs.h"

namespace test {

// Answers the choosers from a script, in the order in which they are asked; a script that has run out
// cancels.
class ScriptedDialogs : public frame::Dialogs {
  public:
    QString openCatalogue(const QString& title, const QString& filter) override {
        return next(title, filter);
    }
    QString saveCatalogue(const QString& title, const QString& filter) override {
        return next(title, filter);
    }
    QString chooseFolder(const QString& title) override { return next(title, {}); }
    std::optional<int> print(QPrinter& printer) override {
        if (onPrint) onPrint(printer);
        return copies;
    }

    std::deque<QString> answers;  // paths; an empty one is a cancel
    std::vector<QString> titles;  // of the choosers shown so far
    std::vector<QString> filters;
    std::function<void()> onChoose;          // while a chooser stands
    std::optional<int> copies;               // the print dialog's answer
    std::function<void(QPrinter&)> onPrint;  // e.g. to set the output file

  private:
    QString next(const QString& title, const QString& filter) {
        titles.push_back(title);
        filters.push_back(filter);
        if (onChoose) onChoose();
        if (answers.empty()) return {};
        const QString answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

}  // namespace test
