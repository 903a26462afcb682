#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "engine/error.h"

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
    [[nodiscard]] std::int64_t integer() const { return static_cast<std::int64_t>(m_number); }

  private:
    std::string_view m_text;
    double m_number = 0;
    bool m_null = true;
};

// The rows of a select, walked forward once. Lives no longer than its Database: after the database was closed
// a recordset is at its end.
class Recordset {
  public:
    struct Impl;
    explicit Recordset(std::unique_ptr<Impl> impl);
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    // True behind the last row (`EOF` itself is a macro of the C library). A row that cannot be read ends the
    // set too; error() tells.
    [[nodiscard]] bool Eof() const;
    void MoveNext();

    // The number of rows of the whole set, counted in the engine; the position is kept.
    [[nodiscard]] long long RecordCount();

    // A column of the current row by name; null at the end, and for a column that the select lacks.
    [[nodiscard]] Value Field(std::string_view column) const;

    // Why reading ended early; nullptr while nothing failed.
    [[nodiscard]] const Error* error() const;

  private:
    std::unique_ptr<Impl> m_impl;
};

}  // namespace engine
