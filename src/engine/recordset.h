#pragma once

#include <memory>
#include <string_view>

#include "engine/error.h"
#include "engine/format.h"
#include "engine/value.h"

namespace engine {

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

    // A column of the current row; null at the end, and for a column that the select lacks.
    [[nodiscard]] Value Field(std::string_view column) const;
    [[nodiscard]] Value Field(Column column) const;

    // Why reading ended early; nullptr while nothing failed.
    [[nodiscard]] const Error* error() const;

  private:
    std::unique_ptr<Impl> m_impl;
};

}  // namespace engine
