#pragma once

#include <array>
#include <cstdio>
#include <expected>
#include <memory>
#include <optional>
#include <string>

#include "core/catalog_row.h"
#include "core/language.h"
#include "engine/format.h"

namespace exchange {

// Reading the rows that `export` writes. A file is taken to the letter or not at all: what another program
// has mended, cut or added may mean something else.

enum class Format { Csv, Json };

// What is wrong with a file of rows, and where: the line that the row begins in, and the column or "".
struct Damage {
    long long line = 0;
    core::Bilingual reason{};
    std::string column{};
};

// The values of a row in the order of engine::columns, as text.
using Fields = std::array<std::optional<std::string>, engine::columns.size()>;

class RowReader {
  public:
    virtual ~RowReader() = default;

    // The next row; nothing at the end. Not to be called again after damage.
    [[nodiscard]] virtual std::expected<std::optional<core::CatalogRow>, Damage> next() = 0;
    // The line that the last row began in.
    [[nodiscard]] virtual long long line() const = 0;
};

// Reads from a file that the caller keeps open. Takes no more memory than its longest row, 16 MB at most.
[[nodiscard]] std::unique_ptr<RowReader> makeReader(std::FILE* file, Format format);

// What the first character of a file tells; it is put back.
[[nodiscard]] Format formatOf(std::FILE* file);

}  // namespace exchange
