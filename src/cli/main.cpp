#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <span>
#include <string>
#include <string_view>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/console.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "core/first_use.h"
#include "platform/memory.h"
#include "platform/settings.h"
#include "platform/temporary_file.h"

namespace {

constexpr core::Bilingual unwritten{"no se pudo escribir la salida", "the output could not be written"};

// The option, else the language that the window runs in, else the desktop's.
core::Language languageFor(std::optional<core::Language> option) {
    if (option) return *option;
    if (const std::string idioma = platform::GetSetting("idioma"); !idioma.empty())
        return core::languageOf(idioma);
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* value = std::getenv(variable); value && *value)
            return std::string_view(value).starts_with("es") ? core::Language::Spanish
                                                             : core::Language::English;
    return core::Language::English;
}

std::string usageLine(const cli::Command& command) {
    return "zarquelin-cli " + std::string(command.name) + " " + command.usage() + "\n    ";
}

void printOptions(std::span<const cli::Option> options, core::Language language) {
    for (const cli::Option& option : options) {
        std::string words = "  " + std::string(option.name) + " " + std::string(option.value);
        words.resize(std::max(words.size() + 2, std::size_t{26}), ' ');
        cli::print(words + std::string(option.summary.in(language)) + "\n");
    }
}

void printHelp(const cli::Command* only, core::Language language) {
    if (only) {
        cli::print(usageLine(*only) + std::string(only->summary.in(language)) + "\n");
        if (!only->options.empty()) cli::print("\n");
        printOptions(only->options, language);
        return;
    }
    for (const cli::Command& command : cli::commands())
        cli::print(usageLine(command) + std::string(command.summary.in(language)) + "\n");
    cli::print("\n");
    printOptions(cli::commonOptions(), language);
}

int run(const cli::Arguments& arguments) {
    const core::Language language = languageFor(arguments.language);
    if (arguments.version) {
        cli::print("zarquelin-cli " ZARQUELIN_VERSION "\n");
        return cli::Done;
    }
    if (arguments.help) {
        printHelp(arguments.command, language);
        return cli::Done;
    }
    cli::endOnInterrupt(language);
    core::loadLibraryTables();
    const cli::Progress progress("zarquelin-cli " + std::string(arguments.command->name));
    return arguments.command->run({arguments, language});
}

int runProgram(int argc, char** argv) {
    const auto arguments = cli::parse({argv + 1, argv + (argc > 0 ? argc : 1)});
    if (!arguments) {
        const auto& [subject, text, command, language] = arguments.error();
        const std::string reason(text.in(languageFor(language)));
        const std::string help = command ? std::string(command->name) + " --help" : "--help";
        const std::string advice = reason + " (zarquelin-cli " + help + ')';
        return subject ? cli::fail(cli::WrongUsage, *subject, advice) : cli::fail(cli::WrongUsage, advice);
    }
    const int status = run(*arguments);
    if (cli::finishOutput()) return status;
    return cli::fail(cli::UnusableCatalogue, unwritten.in(languageFor(arguments->language)));
}

}  // namespace

int main(int argc, char** argv) {
    platform::needMemory("zarquelin-cli", std::size_t{4} << 20);
    platform::removeTemporariesOnSignals();
    try {
        return runProgram(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("zarquelin-cli: not enough memory\n", stderr);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "zarquelin-cli: %s\n", failure.what());
    }
    return cli::UnusableCatalogue;
}
