#pragma once

#include <string>

namespace cli {

// One line on the standard error, if that is a terminal, for work that takes more than a second. It tells
// what is done and for how long, and goes when the work is done, when it fails, or when rows begin to appear
// on the same screen. Commands that count say how far they are.
class Progress {
  public:
    explicit Progress(std::string title);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
};

// What the line tells in place of the seconds. Cheap enough to be called for each file or row.
void showProgress(std::string text);

// Takes the line away, for good.
void hideProgress();

}  // namespace cli
