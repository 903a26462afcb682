#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "engine/dialect/statement.h"
#include "engine/file/prepared.h"
#include "engine/recordset.h"

namespace engine {

// Rows copied out of the database, packed: a few bytes beyond their texts. Addresses hold as long as the
// store.
class RowStore {
  public:
    // Packs the fields of a statement's current row, which begin at its column `first`.
    [[nodiscard]] const char* add(const Prepared& row, const std::vector<Column>& fields, int first);

    [[nodiscard]] const char* addBytes(std::string_view bytes);

    // Takes over the other store's rows; their addresses stay.
    void absorb(RowStore&& other);

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
