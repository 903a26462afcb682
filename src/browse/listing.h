#pragma once

#include <functional>

#include "browse/listing_statements.h"
#include "core/language.h"
#include "engine/database.h"
#include "lists/row_items.h"

namespace browse {

using ItemSink = std::function<void(const lists::ListItem&)>;

// Runs a listing, folders first, and hands over its items. A statement that the engine refuses for its words
// gives no items. Fails when rows cannot be read; what was handed over until then is not the whole.
[[nodiscard]] engine::Result<> list(engine::Database& database, const ListingStatements& listing,
                                    core::Language language, lists::RowMemory& memory, const ItemSink& sink,
                                    bool lowerCaseKeys = false);

}  // namespace browse
