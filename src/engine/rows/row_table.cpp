#include "engine/rows/row_table.h"

#include <algorithm>
#include <cstring>

namespace engine {

namespace {

constexpr std::size_t partSize = sizeof(std::uint64_t);
constexpr std::size_t keyStartSize = sizeof(RowTable::Row::keyStart);
constexpr std::ptrdiff_t fewRows = 12;

// Up to eight bytes as a number that compares as they do. What is missing counts as zeros.
std::uint64_t numberOf(const char* bytes, std::size_t size) {
    unsigned char padded[partSize]{};
    if (size > 0) std::memcpy(padded, bytes, std::min(size, partSize));
    std::uint64_t number = 0;
    for (const unsigned char byte : padded) number = number << 8 | byte;
    return number;
}

}  // namespace

bool RowTable::isBefore(const Row& a, const Row& b) {
    if (a.keyStart != b.keyStart) return a.keyStart < b.keyStart;
    const std::uint32_t shared = std::min(a.keySize, b.keySize);
    if (shared > keyStartSize) {
        const int order = std::memcmp(a.keyRest, b.keyRest, shared - keyStartSize);
        if (order != 0) return order < 0;
    }
    if (a.keySize != b.keySize) return a.keySize < b.keySize;
    return a.rowid < b.rowid;
}

bool RowTable::add(const Prepared& row, std::string_view key, std::int64_t rowid) {
    if (bytes() >= m_bound) return false;
    Row added;
    added.rowid = rowid;
    added.keyStart = numberOf(key.data(), key.size());
    added.keySize = static_cast<std::uint32_t>(key.size());
    if (key.size() > keyStartSize) added.keyRest = m_keys.addBytes(key.substr(keyStartSize));
    const std::string_view packed = m_store.add(row, m_fields);
    added.packed = packed.data();
    added.packedSize = static_cast<std::uint32_t>(packed.size());
    m_rows.push_back(added);
    return true;
}

// Sorts rows whose keys are the same up to `depth` by the next eight bytes, then those with the same eight by
// the next, and so on. So most comparisons stay within the rows, instead of following each one to its key: a
// search that finds 333,000 rows takes 0.74 s of the processor with it and 0.80 s with one std::sort.
void RowTable::sortFrom(std::span<Row> rows, std::size_t depth) {
    for (Row& row : rows) {
        const std::size_t size = row.keySize > depth ? row.keySize - depth : 0;
        row.keyPart = depth == 0 ? row.keyStart
                      : size > 0 ? numberOf(row.keyRest + depth - keyStartSize, size)
                                 : 0;
    }
    const auto isOfLesserPart = [](const Row& a, const Row& b) { return a.keyPart < b.keyPart; };
    std::sort(rows.begin(), rows.end(), isOfLesserPart);
    for (auto begin = rows.begin(); begin != rows.end();) {
        const auto end = std::upper_bound(begin, rows.end(), *begin, isOfLesserPart);
        const auto goesOn = [&](const Row& row) { return row.keySize > depth + partSize; };
        if (end - begin <= fewRows || std::none_of(begin, end, goesOn))
            std::sort(begin, end, isBefore);
        else
            sortFrom({begin, end}, depth + partSize);
        begin = end;
    }
}

std::span<const RowTable::Row> RowTable::inOrder() {
    if (!std::is_sorted(m_rows.begin(), m_rows.end(), isBefore)) sortFrom(m_rows, 0);
    return m_rows;
}

void RowTable::sort() {
    static_cast<void>(inOrder());
    m_keys = PackedRows();
}

void RowTable::clear() {
    m_rows.clear();
    m_store = PackedRows();
    m_keys = PackedRows();
}

void RowTable::fetchAhead(std::size_t row) const {
    constexpr std::size_t lineSize = 64;
    constexpr std::size_t linesOfRow = 3;
    for (std::size_t line = 0; line < linesOfRow; ++line)
        __builtin_prefetch(m_rows[row].packed + line * lineSize);
}

}  // namespace engine
