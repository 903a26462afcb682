#pragma once

#include <span>
#include <string_view>

#include "core/language.h"

namespace cli {

struct Arguments;

enum ExitStatus : int { Done = 0, NothingFound = 1, WrongUsage = 2, UnusableCatalogue = 3 };

// What a command is run with. The operands' number has been checked against the command's.
struct Invocation {
    const Arguments& arguments;
    core::Language language;
};

// A command's own option; --json, --lang, --help and --version are everyone's.
struct Option {
    std::string_view name;
    bool takesValue;
};

struct Command {
    std::string_view name;
    std::string_view usage;  // the operands and options, as the help shows them
    core::Bilingual summary;
    int fewestOperands;
    int mostOperands;
    std::span<const Option> options;
    int (*run)(const Invocation&);
};

// Every command, in the order of the help.
[[nodiscard]] std::span<const Command> commands();
[[nodiscard]] const Command* findCommand(std::string_view name);

}  // namespace cli
