#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "engine/dialect/statement.h"
#include "engine/file/prepared.h"
#include "engine/value.h"

namespace engine {

// Rows copied out of the database, a few bytes beyond their texts each. Addresses hold as long as the store.
class PackedRows {
  public:
    // Packs a statement's current row, whose first columns are `fields`.
    [[nodiscard]] std::string_view add(const Prepared& row, const std::vector<Column>& fields);
    [[nodiscard]] const char* addBytes(std::string_view bytes);
    // What another store holds, where it stands.
    void take(PackedRows&& other);

    [[nodiscard]] std::size_t bytes() const { return m_bytes; }

    // Unpacks a row into one value for each field it was packed with.
    static void unpack(const char* row, std::span<Value> values);

  private:
    [[nodiscard]] char* room(std::size_t size);

    static constexpr std::size_t blockSize = 256 * 1024;
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_free = nullptr;
    std::size_t m_left = 0;
    std::size_t m_bytes = 0;
};

}  // namespace engine
