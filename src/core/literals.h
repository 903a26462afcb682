#pragma once

#include <string>
#include <string_view>

#include "engine/error.h"

namespace core {

// How texts get into statements. What is put between quotes as it stands must pass `refuseApostrophe` first,
// unless it comes from a row: rows hold an acute accent in its place.

// In quotes, each apostrophe doubled: any text.
[[nodiscard]] std::string literal(std::string_view text);

// As part of a pattern of `like` that matches nothing else. Not in quotes yet.
[[nodiscard]] std::string asPattern(std::string_view name);

// An apostrophe ends the literal that it stands in, and what comes behind it could make another valid
// statement: refused with the error that the engine mostly gives, before any statement runs.
[[nodiscard]] engine::Result<> refuseApostrophe(std::string_view text);

}  // namespace core
