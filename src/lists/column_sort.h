#pragma once

#include "lists/item_store.h"

namespace lists {

// The key that sorts a column (from 1): size and date by their hidden keys, names with folders first.
[[nodiscard]] int sortKeyOfColumn(int column);
// The column that shows what a key sorts; 0 when none does.
[[nodiscard]] int columnOfSortKey(int key);

// A click on a column header turns the order over, whichever column was sorted before, and turns sorting on.
[[nodiscard]] ItemStore::Sorting sortingAfterClick(const ItemStore::Sorting& before, int column);

}  // namespace lists
