#include "cli/arguments.h"

#include <algorithm>

namespace cli {
namespace {

constexpr core::Bilingual unknownCommand{"no existe esa orden", "there is no such command"};
constexpr core::Bilingual unknownOption{"opción desconocida", "unknown option"};
constexpr core::Bilingual missingValue{"falta el valor", "lacks its value"};
constexpr core::Bilingual superfluousValue{"no lleva valor", "takes no value"};
constexpr core::Bilingual unknownLanguage{"--lang es \"es\" o \"en\"", "--lang is \"es\" or \"en\""};
constexpr core::Bilingual noCommand{"falta la orden", "which command?"};
constexpr core::Bilingual wrongOperands{"número de argumentos equivocado", "wrong number of arguments"};

class Parser {
  public:
    explicit Parser(std::span<const char* const> words) : m_words(words) {}

    std::expected<Arguments, UsageError> run() {
        while (m_next < m_words.size()) {
            const std::string_view word = m_words[m_next++];
            if (word == "--" && !m_onlyOperands)
                m_onlyOperands = true;
            else if (!m_onlyOperands && isOption(word))
                takeOption(word);
            else
                takeOperand(word);
        }
        checkOperands();
        if (m_error)
            return std::unexpected(UsageError{m_wrong, *m_error, m_result.command, m_result.language});
        return std::move(m_result);
    }

  private:
    // The first one counts; the words behind it may still choose the language.
    void fail(std::optional<std::string_view> word, core::Bilingual error) {
        if (m_error) return;
        m_error = error;
        m_wrong = word;
    }

    void takeOperand(std::string_view word) {
        if (m_result.command) {
            m_result.operands.emplace_back(word);
            return;
        }
        m_result.command = findCommand(word);
        if (!m_result.command) fail(word, unknownCommand);
    }

    // A single dash begins an operand, save where the command says otherwise.
    [[nodiscard]] bool isOption(std::string_view word) const {
        return word.starts_with("--") || word == "-h" || (word.starts_with('-') && known(word));
    }

    void takeOption(std::string_view word) {
        if (word == "-h") word = "--help";
        const auto equals = word.find('=');
        const std::string_view name = word.substr(0, equals);
        const Option* option = known(name);
        if (!option) {
            fail(name, unknownOption);
        } else if (option->value.empty()) {
            if (equals != word.npos) fail(name, superfluousValue);
            store(name, "");
        } else if (equals != word.npos) {
            store(name, word.substr(equals + 1));
        } else if (m_next < m_words.size()) {
            store(name, m_words[m_next++]);
        } else {
            fail(name, missingValue);
        }
    }

    [[nodiscard]] const Option* known(std::string_view name) const {
        const auto in = [name](std::span<const Option> options) {
            const auto found = std::ranges::find(options, name, &Option::name);
            return found == options.end() ? nullptr : &*found;
        };
        if (const Option* common = in(commonOptions())) return common;
        return m_result.command ? in(m_result.command->options) : nullptr;
    }

    void store(std::string_view name, std::string_view value) {
        if (name == "--json")
            m_result.json = true;
        else if (name == "--help")
            m_result.help = true;
        else if (name == "--version")
            m_result.version = true;
        else if (name == "--lang")
            storeLanguage(value);
        else
            m_result.options.push_back({std::string(name), std::string(value)});
    }

    void storeLanguage(std::string_view value) {
        if (value == "es")
            m_result.language = core::Language::Spanish;
        else if (value == "en")
            m_result.language = core::Language::English;
        else
            fail(value, unknownLanguage);
    }

    void checkOperands() {
        if (m_result.help || m_result.version) return;
        const Command* command = m_result.command;
        const auto count = std::ssize(m_result.operands);
        if (!command)
            fail(std::nullopt, noCommand);
        else if (count < command->fewestOperands() || count > command->mostOperands())
            fail(command->name, wrongOperands);
    }

    std::span<const char* const> m_words;
    std::size_t m_next = 0;
    bool m_onlyOperands = false;
    Arguments m_result;
    std::optional<core::Bilingual> m_error;
    std::optional<std::string> m_wrong;
};

}  // namespace

bool Arguments::has(std::string_view option) const {
    return std::ranges::find(options, option, &GivenOption::name) != options.end();
}

std::optional<std::string> Arguments::value(std::string_view option) const {
    std::optional<std::string> last;
    for (const auto& [name, value] : options)
        if (name == option) last = value;
    return last;
}

std::vector<std::string> Arguments::values(std::string_view option) const {
    std::vector<std::string> all;
    for (const auto& [name, value] : options)
        if (name == option) all.push_back(value);
    return all;
}

std::expected<Arguments, UsageError> parse(std::span<const char* const> words) {
    return Parser(words).run();
}

}  // namespace cli
