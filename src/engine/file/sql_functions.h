#pragma once

struct sqlite3;

namespace jet {

// What the statements that we hand to SQLite use beyond its own words:
//   jet_like(text, ?)    `like`, the pattern bound as a pointer to a LikePattern of type patternPointerType
//   collate jet_folded   equality over Unicode case
//   collate jet_sorted   the order of `order by`
// None of them is ever part of a file's schema.
inline constexpr const char* patternPointerType = "jet.LikePattern";

// Gives an SQLite result code.
[[nodiscard]] int registerFunctions(sqlite3* database);

}  // namespace jet
