#pragma once

#include <string_view>

#include "core/language.h"
#include "engine/error.h"

namespace core {

// What a user is told of a call that failed; the engine's own sentence is for logs and the command line.
[[nodiscard]] std::string_view failureSentence(const engine::Error& error, Language idioma);

// The engine did not take the statement, as opposed to a file that could not be read or written.
[[nodiscard]] bool isRefusedStatement(const engine::Error& error);

}  // namespace core
