#include <algorithm>
#include <limits>
#include <vector>

#include "cli/command.h"
#include "cli/families.h"

namespace cli {
namespace {

constexpr Option common[]{
    {"--json", "", {"un objeto JSON por línea", "one JSON object a line"}},
    {"--lang", "es|en", {"el idioma de los mensajes", "the language of the messages"}},
    {"--help", "", {"muestra esta ayuda", "prints this help"}},
    {"--version", "", {"muestra la versión", "prints the version"}},
};

std::string written(const Option& option) {
    return std::string(option.name) + (option.value.empty() ? "" : " ") + std::string(option.value);
}

}  // namespace

std::span<const Command> commands() {
    static const std::vector<Command> all = [] {
        std::vector<Command> joined;
        for (const auto family :
             {catalogueCommands(), enteringCommands(), updateCommands(), unitCommands(), listCommands(),
              searchCommands(), duplicatesCommands(), statsCommands(), noteCommands(), copyCommands(),
              exportCommands(), importCommands(), mountCommands()})
            joined.insert(joined.end(), family.begin(), family.end());
        return joined;
    }();
    return all;
}

const Command* findCommand(std::string_view name) {
    const auto all = commands();
    const auto found = std::ranges::find(all, name, &Command::name);
    return found == all.end() ? nullptr : &*found;
}

std::span<const Option> commonOptions() {
    return common;
}

std::vector<OperandWord> operandWords(const Command& command) {
    std::vector<OperandWord> words;
    for (std::string_view rest = command.operands; !rest.empty();) {
        std::string_view word = rest.substr(0, rest.find(' '));
        rest.remove_prefix(std::min(word.size() + 1, rest.size()));
        const bool optional = word.starts_with('[');
        if (optional) word = word.substr(1, word.size() - 2);
        const bool repeats = word.ends_with("...");
        if (repeats) word.remove_suffix(3);
        words.push_back({word, optional, repeats});
    }
    return words;
}

int Command::fewestOperands() const {
    const auto words = operandWords(*this);
    return static_cast<int>(std::ranges::count(words, false, &OperandWord::optional));
}

int Command::mostOperands() const {
    const auto words = operandWords(*this);
    if (std::ranges::any_of(words, &OperandWord::repeats)) return std::numeric_limits<int>::max();
    return static_cast<int>(words.size());
}

std::string Command::usage() const {
    std::string text(operands);
    bool joined = false;
    for (const Option& option : options) {
        text += joined ? " " : " [";
        text += written(option);
        joined = option.needsNext;
        if (!joined) text += option.repeats ? "]..." : "]";
    }
    return text;
}

}  // namespace cli
