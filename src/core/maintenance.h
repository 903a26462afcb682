#pragma once

#include <string>
#include <string_view>

#include "engine/database.h"
#include "engine/error.h"

namespace core {

// Operations on a catalogue as a whole or on a whole unit. Compaction is in catalogue_file.h.

// The status line after deleteAll, in both languages.
inline constexpr std::string_view emptiedStatus = "Unidades : 0   Carpetas : 0    Archivos: 0";

[[nodiscard]] engine::Result<> deleteAll(engine::Database& database);

// Deletes the rows of a unit; `disco` ends in " :". The engine compares without regard to case.
[[nodiscard]] engine::Result<> deleteUnit(engine::Database& database, std::string_view disco);

// Gives a unit the name `newText` with " :" behind it, whatever the text ends in, and returns that `disco`. A
// text with an apostrophe fails with error::syntaxInExpression and changes nothing.
[[nodiscard]] engine::Result<std::string> renameUnit(engine::Database& database, std::string_view oldDisco,
                                                     std::string_view newText);

// Whether `listanivel1` holds `newText` as a unit's name in all upper or in all lower case. Other spellings
// pass.
[[nodiscard]] bool nameTaken(std::string_view listanivel1, std::string_view newText);

}  // namespace core
