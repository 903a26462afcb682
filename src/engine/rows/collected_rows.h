#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/rows/row_store.h"

namespace engine {

// The rows of a select, gathered and brought into order. Rows beyond a bound of memory are kept by their
// rowid only, to be read again when they are wanted.
class CollectedRows {
  public:
    struct Row {
        std::uint64_t keyStart = 0;  // the first eight bytes of the sort key
        std::uint64_t keyPart = 0;   // those eight that are looked at while sorting
        const char* keyRest = nullptr;
        std::uint32_t keySize = 0;
        std::int64_t rowid = 0;
        const char* packed = nullptr;  // in the store; nullptr when only the rowid is kept

        [[nodiscard]] bool sortsBefore(const Row& other) const;  // by key, then by rowid
    };

    // Adds the current row of `row`, whose columns are: rowid, then `fields`.
    void add(const Prepared& row, const std::vector<Column>& fields, std::string_view key);

    void dropBehind(std::size_t count);  // all rows but the first `count`
    void sort();
    void merge(CollectedRows&& other);  // both sorted

    [[nodiscard]] const std::vector<Row>& rows() const { return m_rows; }

    // How much is kept in memory at most. For tests; 128 MiB otherwise.
    static std::size_t memoryBound;

  private:
    RowStore m_store;
    RowStore m_keys;  // apart from the rows, so that sorting touches little memory
    std::vector<Row> m_rows;
};

}  // namespace engine
