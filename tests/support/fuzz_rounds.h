#pragma once

#include <cstdlib>
#include <random>
#include <string>

#include "support/parts.h"

// The number of rounds given on the command line. The same number of rounds always does the same.
inline int rounds(int argc, char** argv, int usual) {
    return argc > 1 ? std::atoi(argv[1]) : usual;
}

// Texts of a few pieces out of a list, which is where the interesting ones are.
inline std::string randomText(std::mt19937& random, const test::Parts& pieces, unsigned longest) {
    std::string text;
    for (unsigned i = random() % (longest + 1); i > 0; --i) text += pieces[random() % pieces.size()];
    return text;
}
