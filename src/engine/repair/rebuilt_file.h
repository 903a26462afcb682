#pragma once

#include <optional>
#include <string>

#include "engine/file/connection.h"
#include "engine/repair/raw_record.h"

namespace engine {

// A new catalogue that gets the rows of a damaged one; its index is built when they are all in.
class RebuiltFile {
  public:
    // `path` must lead to an empty file.
    [[nodiscard]] Result<> open(const std::string& path);

    // A row as it was, but for values that no catalogue holds: a byte that is no UTF-8 becomes the character
    // that stands for it in names, U+F000 + byte, and what is no number in a column of numbers becomes null.
    [[nodiscard]] Result<> add(const RawRow& row);

    // Fails when the file would not pass for sound.
    [[nodiscard]] Result<> finish();

  private:
    SqliteHandle m_database;
    std::optional<StatementPool> m_pool;
    Prepared m_insert;
};

}  // namespace engine
