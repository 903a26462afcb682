#pragma once

#include "reliability/program.h"

namespace test {

// A command with its program before it: the command line, or what stands for the window where that has none.
inline std::vector<std::string> programFor(std::vector<std::string> words) {
    const bool isTheWindows = words[0] == "save-as" || words[0] == "searches";
    words.insert(words.begin(), isTheWindows ? WINDOW_WORK : ZARQUELIN_CLI);
    return words;
}
inline int workStatus(const std::vector<std::string>& words, const Conditions& conditions = {}) {
    return statusOf(programFor(words), conditions);
}

}  // namespace test
