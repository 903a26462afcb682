#pragma once

#include <cstddef>

namespace platform {

// For main(): ends the program with one line and status 3 unless so many bytes can be had. The system's
// libraries need some at their start, and bear no failing allocation there. What runs out of memory later
// where no exception can pass ends in the same way.
void needMemory(const char* program, std::size_t bytes);

}  // namespace platform
