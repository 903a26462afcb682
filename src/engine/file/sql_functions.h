#pragma once

struct sqlite3;

namespace engine {

// What the statements that we hand to SQLite use beyond its own words:
//   engine_like(text, ?)    `like`, the pattern bound as a pointer of type patternPointerType
//   engine_sort_key(text)   bytes that compare as the texts sort
//   collate engine_folded   equality over Unicode case
// None of them is ever part of a file's schema.
inline constexpr const char* patternPointerType = "engine.LikePattern";

// Gives an SQLite result code.
[[nodiscard]] int registerFunctions(sqlite3* database);

}  // namespace engine
