#include "platform/jet/collected_rows.h"

#include <algorithm>
#include <cstring>

namespace jet {

namespace {

constexpr std::size_t keyStartSize = sizeof(std::uint64_t);

std::uint64_t startOf(std::string_view key) {
    unsigned char bytes[keyStartSize]{};
    if (!key.empty()) std::memcpy(bytes, key.data(), std::min(key.size(), sizeof bytes));
    std::uint64_t start = 0;
    for (const unsigned char byte : bytes) start = start << 8 | byte;
    return start;
}

bool sortsBefore(const CollectedRows::Row& a, const CollectedRows::Row& b) {
    if (a.keyStart != b.keyStart) return a.keyStart < b.keyStart;
    const std::uint32_t shared = std::min(a.keySize, b.keySize);
    if (shared > keyStartSize) {
        const int order = std::memcmp(a.keyRest, b.keyRest, shared - keyStartSize);
        if (order != 0) return order < 0;
    }
    if (a.keySize != b.keySize) return a.keySize < b.keySize;
    return a.rowid < b.rowid;
}

}  // namespace

std::size_t CollectedRows::memoryBound = std::size_t{128} << 20;

void CollectedRows::add(const Prepared& row, const std::vector<Column>& fields, std::string_view key) {
    Row added;
    added.rowid = row.integer(0);
    added.keyStart = startOf(key);
    added.keySize = static_cast<std::uint32_t>(key.size());
    if (key.size() > keyStartSize) added.keyRest = m_store.addBytes(key.substr(keyStartSize));
    if (m_store.bytes() < memoryBound) added.packed = m_store.add(row, fields, 1);
    m_rows.push_back(added);
}

void CollectedRows::dropBehind(std::size_t count) {
    m_rows.resize(count);
}

void CollectedRows::merge(CollectedRows&& other) {
    m_store.absorb(std::move(other.m_store));
    const auto middle = static_cast<std::ptrdiff_t>(m_rows.size());
    m_rows.insert(m_rows.end(), other.m_rows.begin(), other.m_rows.end());
    std::inplace_merge(m_rows.begin(), m_rows.begin() + middle, m_rows.end(), sortsBefore);
    other.m_rows.clear();
}

void CollectedRows::sort() {
    if (!std::is_sorted(m_rows.begin(), m_rows.end(), sortsBefore)) {
        std::sort(m_rows.begin(), m_rows.end(), sortsBefore);
    }
}

}  // namespace jet
