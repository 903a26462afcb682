#include "engine/rows/ordering.h"

#include <bit>

#include "engine/text/sort_key.h"

namespace engine {

namespace {

// Eight bytes that compare as the numbers do; none is all zeros, which is left to null.
void appendNumberKey(std::string& key, double number) {
    auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    bits = bits & sign ? ~bits : bits | sign;
    for (int shift = 56; shift >= 0; shift -= 8) key += static_cast<char>(bits >> shift & 0xFF);
}

void appendColumnKey(std::string& key, Column column, const Prepared& row, int index) {
    if (info(column).type == Type::Text) {
        appendSortKey(key, row.text(index));
    } else if (row.isNull(index)) {
        key.append(8, '\0');
    } else {
        appendNumberKey(key, row.number(index));
    }
}

}  // namespace

void appendOrderKey(std::string& key, const std::vector<Ordering>& orderBy, const Prepared& row, int first) {
    for (std::size_t i = 0; i < orderBy.size(); ++i) {
        const std::size_t begin = key.size();
        appendColumnKey(key, orderBy[i].column, row, first + static_cast<int>(i));
        const bool isLast = i + 1 == orderBy.size();
        // What follows must not mix with a longer text of this column.
        if (info(orderBy[i].column).type == Type::Text && (!isLast || orderBy[i].descending))
            key.append(2, '\0');
        if (!orderBy[i].descending) continue;
        for (std::size_t at = begin; at < key.size(); ++at) key[at] = static_cast<char>(~key[at]);
    }
}

}  // namespace engine
