#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/command.h"
#include "engine/database.h"

namespace cli {

// Writes "zarquelin-cli: SUBJECT: REASON" (or without a subject) to the standard error, as one line whatever
// bytes the subject holds, and gives the status back.
int fail(ExitStatus status, std::string_view subject, std::string_view reason);
int fail(ExitStatus status, std::string_view reason);

// Says why a catalogue cannot be used: in the engine's own English sentence, which stands in brackets behind
// a plainer one in any other language.
int unusable(const std::string& catalogue, const engine::Error& error, core::Language language);

// Opens a catalogue, or says why it cannot be used and gives nothing.
[[nodiscard]] std::optional<engine::Database> openCatalogue(const std::string& path, core::Language language,
                                                            engine::Use use);

// True when every character of the text could be typed in a field that takes only `allowed`.
[[nodiscard]] bool canBeTyped(std::string_view text, std::string_view allowed);
inline constexpr core::Bilingual notTypeable{"contiene un carácter no permitido",
                                             "holds a character that is not allowed"};

}  // namespace cli
