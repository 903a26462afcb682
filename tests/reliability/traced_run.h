#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace test {

using Words = std::vector<std::string>;

// How a watched program ended.
struct TracedRun {
    bool possible = true;  // false where this machine lets no process watch another
    bool killed = false;
    int status = -1;  // of an end of its own
    int steps = 0;    // moments passed: before and after each system call that changes a file
    // Of a scan: the moments at which it looked at each entry of the tree, by the program's running time
    // less what it spent waiting for the disk; and the moment of its end.
    std::vector<std::chrono::duration<double>> looks;
    std::chrono::duration<double> end{};
};

// Runs a program, the output thrown away, and kills it without warning when it reaches a step (from 1); 0
// lets it run to its end.
[[nodiscard]] TracedRun runUntilStep(const Words& command, int step);

}  // namespace test
