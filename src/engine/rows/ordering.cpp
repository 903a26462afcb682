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
Result<> appendColumnKey(std::string& key, Column column, const Prepared& row, int index) {
    const bool isText = info(column).type == Type::Text;
    if (row.isNull(index))
        key.append(isText ? 1 : 8, '\0');
    else if (isText)
        return appendSortKey(key, row.text(index));
    else
        appendNumberKey(key, row.number(index));
    return {};
}

}  // namespace

Result<> appendOrderKey(std::string& key, const std::vector<Ordering>& orderBy, const Prepared& row,
                        const std::vector<int>& places) {
    for (std::size_t i = 0; i < orderBy.size(); ++i) {
        const std::size_t begin = key.size();
        auto appended = appendColumnKey(key, orderBy[i].column, row, places[i]);
        if (!appended) return appended;
        if (!orderBy[i].descending) continue;
        for (std::size_t at = begin; at < key.size(); ++at) key[at] = static_cast<char>(~key[at]);
    }
    return {};
}

}  // namespace engine
