#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <span>
#include <string>

#include "support/parts.h"
#include "support/rounds.h"

// Work that is done again and again with what chance gives it: a few rounds among the tests, from a seed, and
// in a program of its own for as long as one likes, from what libFuzzer makes up (the preset `fuzz`).
//
//     struct Paths : test::Fuzz {
//         void round(test::Random& random);    asserts as a test does, and counts what was not refused as
//         useful
//     };
//     FUZZED(Paths, 20'000)    that many rounds unless ROUNDS tells, from SEED

namespace test {

// Numbers by chance, or out of a text of bytes, and zeros when that is used up.
class Random {
  public:
    explicit Random(unsigned seed) : m_seeded(seed) {}
    explicit Random(std::span<const std::uint8_t> bytes) : m_bytes(bytes), m_fromBytes(true) {}

    // Below `bound`; 0 if there is no such number.
    std::size_t operator()(std::size_t bound) {
        if (bound <= 1) return 0;
        if (!m_fromBytes) return m_seeded() % bound;
        std::size_t number = 0;
        for (std::size_t most = 1; most < bound && !m_bytes.empty(); most <<= 8) {
            number = number << 8 | m_bytes.front();
            m_bytes = m_bytes.subspan(1);
        }
        return number % bound;
    }
    const std::string& of(const Parts& pieces) { return pieces[(*this)(pieces.size())]; }

  private:
    std::mt19937 m_seeded;
    std::span<const std::uint8_t> m_bytes;
    bool m_fromBytes = false;
};

// Texts of a few pieces out of a list, which is where the interesting ones are.
inline std::string randomText(Random& random, const Parts& pieces, std::size_t longest) {
    std::string text;
    for (std::size_t i = random(longest + 1); i > 0; --i) text += random.of(pieces);
    return text;
}

// Every fourth text gets another byte somewhere.
inline void spoil(std::string& text, Random& random) {
    if (random(4) == 0 && !text.empty()) text[random(text.size())] = static_cast<char>(random(256));
}

struct Fuzz {
    long long useful = 0;
};

}  // namespace test

#ifdef ZARQUELIN_LIBFUZZER
#define FUZZED(Work, usual)                                                                        \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {           \
        GTEST_FLAG_SET(throw_on_failure, true); /* and so ends the program, with the input kept */ \
        static Work work;                                                                          \
        test::Random random(std::span(bytes, size));                                               \
        work.round(random);                                                                        \
        return 0;                                                                                  \
    }
#else
#define FUZZED(Work, usual)                                                                     \
    TEST(Fuzz, Work) {                                                                          \
        Work work;                                                                              \
        test::Random random(static_cast<unsigned>(test::told("SEED", 3)));                      \
        for (int i = test::rounds(usual); i > 0 && !HasFatalFailure(); --i) work.round(random); \
        EXPECT_GT(work.useful, 0);                                                              \
    }
#endif
