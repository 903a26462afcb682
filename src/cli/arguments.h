#pragma once

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "core/language.h"

namespace cli {

struct GivenOption {
    std::string name;   // with its dashes
    std::string value;  // empty for a flag
};

// The command line, taken apart. Operands are the bytes that the shell gave.
struct Arguments {
    const Command* command = nullptr;  // absent only with --help or --version
    std::vector<std::string> operands;
    std::vector<GivenOption> options;  // the command's own
    std::optional<core::Language> language;
    bool json = false;
    bool help = false;
    bool version = false;

    [[nodiscard]] bool has(std::string_view option) const;
    [[nodiscard]] std::optional<std::string> value(std::string_view option) const;  // the last one
    [[nodiscard]] std::vector<std::string> values(std::string_view option) const;
};

// What is wrong with a command line, and the language that it asked for before going wrong.
struct UsageError {
    std::optional<std::string> subject;  // the word that is wrong, or the command that has too few or many
    core::Bilingual reason;
    const Command* command;  // whose help is of use, if one was named
    std::optional<core::Language> language;
};

// Parses what follows the program's name. Options may stand anywhere behind the command, as `--kind audio` or
// `--kind=audio`; everything behind `--` is an operand, and so is whatever starts with a single dash and
// is no option of the command.
[[nodiscard]] std::expected<Arguments, UsageError> parse(std::span<const char* const> words);

}  // namespace cli
