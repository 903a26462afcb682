#pragma once

#include <expected>
#include <string>

#include "cli/arguments.h"
#include "core/language.h"
#include "search/search_request.h"

namespace cli {

// What is wrong with a command line; its subject may be empty.
struct Complaint {
    core::Bilingual reason;
    std::string subject;
};

// What a search asks for, from its last operand and its options. The unit is left to each catalogue.
[[nodiscard]] std::expected<search::SearchRequest, Complaint> searchRequestOf(const Arguments& arguments,
                                                                              const core::Rotulos& rotulos);

// The words of --type, as the usage has them.
inline constexpr std::string_view searchTypes = "audio|picture|video|application|text|web|zipped";

}  // namespace cli
