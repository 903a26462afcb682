#include "engine/rows/ordering.h"

#include <bit>

#include "engine/text/collation.h"

namespace engine {

namespace {

// Eight bytes that compare as the numbers do; none is all zeros, which is left to null.
void appendNumberKey(std::string& key, double number) {
    auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    bits = bits & sign ? ~bits : bits | sign;
    for (int shift = 56; shift >= 0; shift -= 8) key += static_cast<char>(bits >> shift & 0xFF);
}

// What follows cannot mix with it: a text's key ends in its only zero, and a number's has always eight bytes.
Result<> appendColumnKey(std::string& key, Column column, const Value& value) {
    const bool isText = info(column).type == Type::Text;
    if (value.isNull())
        key.append(isText ? 1 : 8, '\0');
    else if (isText)
        return appendSortKey(key, value.text());
    else
        appendNumberKey(key, value.number());
    return {};
}

}  // namespace

RowOrder::RowOrder(std::vector<Ordering> orderBy, std::span<const Column> columns)
    : m_orderBy(std::move(orderBy)), m_places(columns) {}

Result<> RowOrder::appendKey(std::string& key, std::span<const Value> row) const {
    for (const Ordering& ordering : m_orderBy) {
        const std::size_t begin = key.size();
        TRY(appendColumnKey(key, ordering.column, row[m_places[ordering.column]]));
        if (!ordering.descending) continue;
        for (std::size_t at = begin; at < key.size(); ++at) key[at] = static_cast<char>(~key[at]);
    }
    return {};
}

}  // namespace engine
