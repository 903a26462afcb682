#pragma once

#include <cstdlib>
#include <random>
#include <string>

#include "support/parts.h"

namespace test {

// What the environment says, for tests that run a moment with the others and as long as they are told.
inline int told(const char* variable, int usual) {
    const char* value = std::getenv(variable);
    return value ? std::atoi(value) : usual;
}

// How often something is tried at random, and what with. The same ROUNDS and SEED always do the same.
inline int rounds(int usual) {
    return told("ROUNDS", usual);
}
inline std::mt19937 seeded() {
    return std::mt19937(static_cast<unsigned>(told("SEED", 3)));
}

// Texts of a few pieces out of a list, which is where the interesting ones are.
inline std::string randomText(std::mt19937& random, const Parts& pieces, unsigned longest) {
    std::string text;
    for (unsigned i = random() % (longest + 1); i > 0; --i) text += pieces[random() % pieces.size()];
    return text;
}

}  // namespace test
