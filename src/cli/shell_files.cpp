#include "cli/shell_files.h"

#include <map>

#include "cli/command.h"
#include "core/text.h"

namespace cli {
namespace {

std::string english(core::Bilingual text) {
    return std::string(text.in(core::Language::English));
}

std::string inSingleQuotes(std::string_view text) {
    return "'" + core::replaceAll(std::string(text), "'", R"('\'')") + "'";
}

std::string words(std::string choices) {
    return core::replaceAll(std::move(choices), "|", " ");
}

std::string names(std::span<const Option> options) {
    std::string all;
    for (const Option& option : options) all.append(all.empty() ? "" : " ").append(option.name);
    return all;
}

// "    [scan]='CAT NAME DIR'", a line of an array of bash.
std::string entry(std::string_view key, std::string_view value) {
    return "    [" + std::string(key) + "]=" + inSingleQuotes(value) + "\n";
}

std::string bashOperands(const Command& command) {
    std::string all;
    for (const OperandWord& word : operandWords(command))
        all.append(all.empty() ? "" : " ").append(word.name).append(word.repeats ? "..." : "");
    return all;
}

// Where a file of any sort, a folder, a catalogue, a unit or what is in one is wanted.
std::string zshAction(std::string_view word) {
    if (word == "CAT") return R"(_files -g "*.zrq")";
    if (word == "DIR") return "_files -/";
    if (word == "FILE" || word == "DEST") return "_files";
    if (word == "PATH") return "_zarquelin_paths";
    if (word == "UNIT") return "_zarquelin_units";
    return word.contains('|') ? "(" + words(std::string(word)) + ")" : " ";
}

std::string zshText(std::string text) {
    for (const std::string_view special : {"\\", ":", "[", "]"})
        text = core::replaceAll(std::move(text), special, "\\" + std::string(special));
    return text;
}

std::string zshOption(const Option& option) {
    std::string spec = option.repeats ? "*" : "";
    spec += std::string(option.name) + "[" + zshText(english(option.summary)) + "]";
    if (!option.value.empty()) {
        const std::string_view wanted = option.name == "--unit" ? "UNIT" : option.value;
        spec += ":" + (wanted.contains('|') ? "word" : std::string(option.value)) + ":" + zshAction(wanted);
    }
    return "        " + inSingleQuotes(spec) + "\n";
}

std::string zshCase(const Command& command) {
    std::string text = "        " + std::string(command.name) + ")\n        _arguments $common \\\n";
    const auto spec = [&](const std::string& line) {
        text += "    " + line.substr(0, line.size() - 1) + " \\\n";
    };
    for (const Option& option : command.options) spec(zshOption(option));
    bool repeated = false;
    for (const OperandWord& word : operandWords(command)) {
        if (repeated) break;  // what follows a repeated word cannot be told from it
        repeated = word.repeats;
        const std::string start = repeated ? "*:" : word.optional ? "::" : ":";
        spec("        " + inSingleQuotes(start + std::string(word.name) + ":" + zshAction(word.name)) + "\n");
    }
    return text.substr(0, text.size() - 3) + "\n        ;;\n";
}

// Names upright and bold, what stands for something else in italics; brackets, bars and dots plain.
std::string roffUsage(const Command& command) {
    std::string usage;
    for (const char c : command.usage()) {
        const bool sign = c == '[' || c == ']' || c == '|' || c == '.';
        usage += sign ? "\\fR" + std::string(1, c) + "\\fI" : c == '-' ? "\\-" : std::string(1, c);
    }
    for (const Option& option : command.options) {
        const std::string name = core::replaceAll(std::string(option.name), "-", "\\-");
        for (const char* behind : {" ", "\\fR]"})
            usage = core::replaceAll(std::move(usage), name + behind, "\\fB" + name + "\\fI" + behind);
    }
    return "\\fB" + std::string(command.name) + " \\fI" + usage + "\\fR";
}

std::string fishOption(const Option& option, const std::string& condition) {
    std::string line = "complete -c zarquelin-cli" + condition;
    line += option.name.starts_with("--") ? " -l " + std::string(option.name.substr(2))
                                          : " -s " + std::string(option.name.substr(1));
    if (option.value.contains('|')) line += " -x -a " + inSingleQuotes(words(std::string(option.value)));
    if (option.name == "--unit")
        line += " -x -a '(__zarquelin_units)'";
    else if (!option.value.empty() && !option.value.contains('|'))
        line += " -r";
    return line + " -d " + inSingleQuotes(english(option.summary)) + "\n";
}

std::string fishLines() {
    std::string lines;
    for (const Option& option : commonOptions()) lines += fishOption(option, "");
    for (const Command& command : commands()) {
        const std::string name(command.name);
        lines += "\ncomplete -c zarquelin-cli -n __fish_use_subcommand -f -a " + name + " -d " +
                 inSingleQuotes(english(command.summary)) + "\n";
        const std::string seen = "__fish_seen_subcommand_from " + name;
        for (const Option& option : command.options) lines += fishOption(option, " -n '" + seen + "'");
        const auto operands = operandWords(command);
        for (std::size_t i = 0; i < operands.size(); ++i) {
            const std::string place = (operands[i].repeats ? "_from " : "_at ") + std::to_string(i);
            const std::string there =
                "complete -c zarquelin-cli -n '" + seen + "; and __zarquelin" + place + "' ";
            if (operands[i].name == "UNIT") lines += there + "-f -a '(__zarquelin_units)'\n";
            if (operands[i].name == "PATH") lines += there + "-a '(__zarquelin_paths)'\n";
        }
    }
    return lines;
}

}  // namespace

std::string manualPage(std::string templateText) {
    for (const Command& command : commands())
        templateText = core::replaceAll(std::move(templateText), "%" + std::string(command.name) + "%",
                                        roffUsage(command));
    return templateText;
}

std::string bashCompletion(std::string templateText) {
    std::string operands, options;
    std::map<std::string_view, std::string> values;
    const auto noteValues = [&](std::span<const Option> some) {
        for (const Option& option : some)
            if (!option.value.empty()) values.emplace(option.name, option.value);
    };
    noteValues(commonOptions());
    for (const Command& command : commands()) {
        operands += entry(command.name, bashOperands(command));
        if (!command.options.empty()) options += entry(command.name, names(command.options));
        noteValues(command.options);
    }
    std::string valueEntries;
    for (const auto& [name, value] : values) valueEntries += entry(name, value);
    templateText = core::replaceAll(std::move(templateText), "@OPERANDS@", operands);
    templateText = core::replaceAll(std::move(templateText), "@OPTIONS@", options);
    templateText = core::replaceAll(std::move(templateText), "@VALUES@", valueEntries);
    return core::replaceAll(std::move(templateText), "@COMMON@", names(commonOptions()));
}

std::string zshCompletion(std::string templateText) {
    std::string described, cases, common;
    for (const Command& command : commands()) {
        described += "        " +
                     inSingleQuotes(std::string(command.name) + ":" + zshText(english(command.summary))) +
                     "\n";
        cases += zshCase(command);
    }
    for (const Option& option : commonOptions()) common += zshOption(option);
    templateText = core::replaceAll(std::move(templateText), "@COMMANDS@", described);
    templateText = core::replaceAll(std::move(templateText), "@COMMON@", common);
    return core::replaceAll(std::move(templateText), "@CASES@", cases);
}

std::string fishCompletion(std::string templateText) {
    return core::replaceAll(std::move(templateText), "@LINES@\n", fishLines());
}

}  // namespace cli
