#pragma once

struct sqlite3;

namespace engine {

// What the statements that we hand to SQLite use beyond its own words:
//   engine_like(text, ?)    `like`, the pattern bound as a pointer to a LikePattern of type
//   patternPointerType collate engine_folded   equality over Unicode case collate engine_sorted   the order
//   of `order by`
// None of them is ever part of a file's schema.
inline constexpr const char* patternPointerType = "engine.LikePattern";

// Gives an SQLite result code.
[[nodiscard]] int registerFunctions(sqlite3* database);

}  // namespace engine
