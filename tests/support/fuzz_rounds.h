#pragma once

#include <cstdlib>
#include <random>
#include <string>

#include "support/parts.h"

// The number of rounds given on the command line, and what comes after it: the same two always do the same.
inline int rounds(int argc, char** argv, int usual) {
    return argc > 1 ? std::atoi(argv[1]) : usual;
}
inline unsigned seed(int argc, char** argv) {
    return argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 3;
}

// Texts of a few pieces out of a list, which is where the interesting ones are.
inline std::string randomText(std::mt19937& random, const test::Parts& pieces, unsigned longest) {
    std::string text;
    for (unsigned i = random() % (longest + 1); i > 0; --i) text += pieces[random() % pieces.size()];
    return text;
}
