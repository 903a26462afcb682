#pragma once

#include <cstdlib>

namespace test {

// What the environment says, for tests that run a moment with the others and as long as they are told.
inline int told(const char* variable, int usual) {
    const char* value = std::getenv(variable);
    return value ? std::atoi(value) : usual;
}

// How often something is tried.
inline int rounds(int usual) {
    return told("ROUNDS", usual);
}

}  // namespace test
