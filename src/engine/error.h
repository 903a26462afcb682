#pragma once

#include <expected>
#include <string>
#include <utility>

namespace engine {

// The engine's error numbers that callers test for or report. Everything else is `general`.
namespace error {
inline constexpr int general = 3000;
inline constexpr int duplicateValue = 3022;
inline constexpr int fileNotFound = 3024;
inline constexpr int diskFull = 3026;
inline constexpr int readOnly = 3027;
inline constexpr int replaced = 3197;     // another program has put another file under the name
inline constexpr int interrupted = 3428;  // a change was broken off, and cannot be undone where the file is
inline constexpr int fileExists = 3204;
inline constexpr int cannotOpenFile = 3051;  // no permission, or not a regular file
inline constexpr int outOfMemory = 3035;
inline constexpr int unknownName = 3061;  // a column that the table lacks
inline constexpr int syntaxInExpression = 3075;
inline constexpr int unknownTable = 3078;
inline constexpr int locked = 3356;              // another process or handle holds the file
inline constexpr int unrecognizedFormat = 3343;  // garbage, or a database that is no catalogue
inline constexpr int corrupt = 3049;             // a catalogue, but damaged
}  // namespace error

// Why an engine call failed: the engine's number and a readable English sentence for logs and the command
// line.
struct [[nodiscard]] Error {
    int number = error::general;
    std::string text;
};

template <class T = void>
using Result = std::expected<T, Error>;

}  // namespace engine

// The value of a result; without one, leaves the function with its error. What the value looks at must
// outlive the expression.
#define TRY(expression)                                               \
    __extension__({                                                   \
        auto tried = (expression);                                    \
        if (!tried) return std::unexpected(std::move(tried).error()); \
        *std::move(tried);                                            \
    })
