#include "engine/rows/row_table.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

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

void RowTable::add(const Prepared& row) {
    const std::string_view packed = m_store.add(row, m_fields);
    m_rows.push_back({.packed = packed.data(),
                      .rowid = row.integer(static_cast<int>(m_fields.size())),
                      .packedSize = static_cast<std::uint32_t>(packed.size())});
}

Result<> RowTable::makeKeys(const RowOrder& order) {
    std::array<Value, columns.size()> values;
    std::string key;
    for (Row& row : m_rows) {
        PackedRows::unpack(row.packed, std::span(values).first(m_fields.size()));
        key.clear();
        TRY(order.appendKey(key, values));
        row.keyStart = numberOf(key.data(), key.size());
        row.keySize = static_cast<std::uint32_t>(key.size());
        if (key.size() > keyStartSize)
            row.keyRest = m_keys.addBytes(std::string_view(key).substr(keyStartSize));
    }
    return {};
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

Result<> RowTable::sort(const RowOrder& order) {
    TRY(makeKeys(order));
    if (!std::is_sorted(m_rows.begin(), m_rows.end(), isBefore)) sortFrom(m_rows, 0);
    return {};
}

RowTable RowTable::merged(std::vector<RowTable> tables) {
    RowTable all(tables.front().fields());
    std::vector<std::size_t> ends{0};
    for (const RowTable& table : tables) ends.push_back(ends.back() + table.size());
    all.m_rows.reserve(ends.back());
    for (RowTable& table : tables) {
        all.m_rows.insert(all.m_rows.end(), table.m_rows.begin(), table.m_rows.end());
        all.m_store.take(std::move(table.m_store));
        table.m_rows = {};
    }
    const auto begin = all.m_rows.begin();
    const std::size_t last = ends.size() - 1;
    for (std::size_t width = 1; width < last; width *= 2)
        for (std::size_t at = 0; at + width < last; at += 2 * width)
            std::inplace_merge(begin + ends[at], begin + ends[at + width],
                               begin + ends[std::min(at + 2 * width, last)], isBefore);
    return all;
}

void RowTable::fetchAhead(std::size_t row) const {
    constexpr std::size_t lineSize = 64;
    constexpr std::size_t linesOfRow = 3;
    for (std::size_t line = 0; line < linesOfRow; ++line)
        __builtin_prefetch(m_rows[row].packed + line * lineSize);
}

}  // namespace engine
