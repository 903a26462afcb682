#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/language.h"

namespace cli {

struct Arguments;

enum ExitStatus : int { Done = 0, NothingFound = 1, WrongUsage = 2, UnusableCatalogue = 3 };

// What a command is run with. The operands' number has been checked against the command's.
struct Invocation {
    const Arguments& arguments;
    core::Language language;
};

struct Option {
    std::string_view name;  // with its dashes
    std::string_view
        value;  // what its value is called, or the words to choose from ("csv|json"); empty for a flag
    core::Bilingual summary;  // a few words
    bool repeats = false;     // may be given several times
    bool needsNext = false;   // is given only together with the option behind it
};

// A command's words stand here and nowhere else: parsing, help and completion are made from them, and the
// manual page is held against them.
struct Command {
    std::string_view name;
    std::string_view
        operands;  // "CAT UNIT [PATH]": brackets around what may be left out, "..." behind what repeats
    core::Bilingual summary;
    std::span<const Option> options;
    int (*run)(const Invocation&);

    [[nodiscard]] int fewestOperands() const;
    [[nodiscard]] int mostOperands() const;
    // The operands and options, as the help shows them.
    [[nodiscard]] std::string usage() const;
};

// Every command, in the order of the help.
[[nodiscard]] std::span<const Command> commands();
[[nodiscard]] const Command* findCommand(std::string_view name);

// The options that every command has.
[[nodiscard]] std::span<const Option> commonOptions();

// The operands of a command, taken apart: "[PATH]" is "PATH" that may be left out.
struct OperandWord {
    std::string_view name;
    bool optional;
    bool repeats;
};
[[nodiscard]] std::vector<OperandWord> operandWords(const Command& command);

}  // namespace cli
