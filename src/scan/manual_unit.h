#pragma once

#include <string>

#include "engine/database.h"
#include "scan/refusal.h"

namespace scan {

// A unit typed in by hand: one row.
struct ManualUnit {
    std::string name;
    std::string content;
    int kind = 0;  // 1 to 5, the place in core::unitKinds
};

// A field that is empty, as a reason not to make it.
[[nodiscard]] const UnitRefusal* refusalOf(const ManualUnit& unit);

// Makes the unit or gives the first reason not to, in one transaction: two programs cannot take one name.
// `tipo` is the word of the last hand-made unit of this run: a kind that is none of the five leaves it in
// force, any other replaces it.
[[nodiscard]] engine::Result<const UnitRefusal*> addManualUnit(const ManualUnit& unit, std::string& tipo,
                                                               engine::Database& database);

}  // namespace scan
