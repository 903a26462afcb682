#include "lists/column_sort.h"

#include <algorithm>
#include <array>

namespace lists {
namespace {

constexpr std::array keyOfColumn{int{SubItem::NameKey}, int{SubItem::Notes}, int{SubItem::Type},
                                 int{SubItem::SizeKey},
                                 int{SubItem::DateKey}};  // columns 1 to 5; any other is sorted as it stands

}

int sortKeyOfColumn(int column) {
    const bool special = column >= 1 && column <= static_cast<int>(keyOfColumn.size());
    return special ? keyOfColumn[static_cast<std::size_t>(column - 1)] : column - 1;
}

int columnOfSortKey(int key) {
    const auto found = std::find(keyOfColumn.begin(), keyOfColumn.end(), key);
    if (found != keyOfColumn.end()) return static_cast<int>(found - keyOfColumn.begin()) + 1;
    return key >= static_cast<int>(keyOfColumn.size()) && key <= subItemCount ? key + 1 : 0;
}

ItemStore::Sorting sortingAfterClick(const ItemStore::Sorting& before, int column) {
    return {.on = true, .key = sortKeyOfColumn(column), .descending = !before.descending};
}

}  // namespace lists
