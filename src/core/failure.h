#pragma once

#include <string>
#include <string_view>

#include "core/language.h"
#include "engine/error.h"

namespace core {

// What a user is told of a call that failed; the engine's own sentence is for logs and the command line.
[[nodiscard]] std::string_view failureSentence(const engine::Error& error, Language idioma);

// The same with the catalogue that it is about: "  photos.zrq: It does not exist." for the status line, and
// the path over the sentence for a box. A refused statement is about what was typed, so its sentence stands
// alone in a box.
[[nodiscard]] std::string failureLine(const std::string& catalogue, const engine::Error& error,
                                      Language idioma);
[[nodiscard]] std::string failureMessage(const std::string& catalogue, const engine::Error& error,
                                         Language idioma);

// The engine did not take the statement, as opposed to a file that could not be read or written.
[[nodiscard]] bool isRefusedStatement(const engine::Error& error);

}  // namespace core
