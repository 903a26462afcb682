#include "engine/rows/collected_rows.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace engine {

namespace {

constexpr std::size_t partSize = sizeof(std::uint64_t);
constexpr std::size_t keyStartSize = partSize;
constexpr std::ptrdiff_t fewRows = 12;

// Up to eight bytes as a number that compares as they do. What is missing counts as zeros.
std::uint64_t numberOf(const char* bytes, std::size_t size) {
    unsigned char padded[partSize]{};
    if (size > 0) std::memcpy(padded, bytes, std::min(size, partSize));
    std::uint64_t number = 0;
    for (const unsigned char byte : padded) number = number << 8 | byte;
    return number;
}

bool isBefore(const CollectedRows::Row& a, const CollectedRows::Row& b) {
    return a.sortsBefore(b);
}

bool isOfLesserPart(const CollectedRows::Row& a, const CollectedRows::Row& b) {
    return a.keyPart < b.keyPart;
}

// Sorts rows whose keys are the same up to `depth` by the next eight bytes, then those with the same eight by
// the next, and so on. So most comparisons stay within the rows, instead of following each one to its key.
void sortFrom(std::span<CollectedRows::Row> rows, std::size_t depth) {
    for (CollectedRows::Row& row : rows) {
        const std::size_t size = row.keySize > depth ? row.keySize - depth : 0;
        row.keyPart = depth == 0 ? row.keyStart
                      : size > 0 ? numberOf(row.keyRest + depth - keyStartSize, size)
                                 : 0;
    }
    std::sort(rows.begin(), rows.end(), isOfLesserPart);
    for (auto begin = rows.begin(); begin != rows.end();) {
        const auto end = std::upper_bound(begin, rows.end(), *begin, isOfLesserPart);
        const auto goesOn = [&](const auto& row) { return row.keySize > depth + partSize; };
        if (end - begin <= fewRows || std::none_of(begin, end, goesOn))
            std::sort(begin, end, isBefore);
        else
            sortFrom({begin, end}, depth + partSize);
        begin = end;
    }
}

}  // namespace

bool CollectedRows::Row::sortsBefore(const Row& other) const {
    if (keyStart != other.keyStart) return keyStart < other.keyStart;
    const std::uint32_t shared = std::min(keySize, other.keySize);
    if (shared > keyStartSize) {
        const int order = std::memcmp(keyRest, other.keyRest, shared - keyStartSize);
        if (order != 0) return order < 0;
    }
    if (keySize != other.keySize) return keySize < other.keySize;
    return rowid < other.rowid;
}

std::size_t CollectedRows::memoryBound = std::size_t{128} << 20;

void CollectedRows::add(const Prepared& row, const std::vector<Column>& fields, std::string_view key) {
    Row added;
    added.rowid = row.integer(0);
    added.keyStart = numberOf(key.data(), key.size());
    added.keySize = static_cast<std::uint32_t>(key.size());
    if (key.size() > keyStartSize) added.keyRest = m_keys.addBytes(key.substr(keyStartSize));
    if (m_store.bytes() + m_keys.bytes() < memoryBound) added.packed = m_store.add(row, fields, 1);
    m_rows.push_back(added);
}

void CollectedRows::dropBehind(std::size_t count) {
    m_rows.resize(count);
}

void CollectedRows::merge(CollectedRows&& other) {
    m_store.absorb(std::move(other.m_store));
    m_keys.absorb(std::move(other.m_keys));
    const auto middle = static_cast<std::ptrdiff_t>(m_rows.size());
    m_rows.insert(m_rows.end(), other.m_rows.begin(), other.m_rows.end());
    std::inplace_merge(m_rows.begin(), m_rows.begin() + middle, m_rows.end(), isBefore);
    other.m_rows.clear();
}

void CollectedRows::sort() {
    if (!std::is_sorted(m_rows.begin(), m_rows.end(), isBefore)) {
        sortFrom(m_rows, 0);
    }
}

}  // namespace engine
