#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace engine {

// One field of the current row. Views point into the row and hold until MoveNext.
// A null reads as the empty text and the number 0.
class Value {
  public:
    Value() = default;
    explicit Value(std::string_view text) : m_text(text), m_null(false) {}
    Value(std::string_view text, double number) : m_text(text), m_number(number), m_null(false) {}

    [[nodiscard]] bool isNull() const { return m_null; }
    [[nodiscard]] std::string_view text() const { return m_text; }  // UTF-8; empty for a numeric column
    [[nodiscard]] double number() const { return m_number; }
    // A number beyond what 64 bits hold reads as about the last one that they do.
    [[nodiscard]] std::int64_t integer() const {
        constexpr double last = 0x1p62;
        return static_cast<std::int64_t>(std::clamp(m_number, -last, last));
    }

  private:
    std::string_view m_text;
    double m_number = 0;
    bool m_null = true;
};

}  // namespace engine
