#include "platform/command_line.h"

#include <filesystem>
#include <optional>

namespace platform {
namespace {

std::optional<unsigned> hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return std::nullopt;
}

std::string percentDecoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto high = text[i] == '%' && i + 2 < text.size() ? hexDigit(text[i + 1]) : std::nullopt;
        const auto low = high ? hexDigit(text[i + 2]) : std::nullopt;
        if (low && (*high || *low)) {
            bytes += char(*high << 4 | *low);
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

// The path of "file:///a%20b" or "file://localhost/a"; nothing for other arguments.
std::optional<std::string> pathOfAddress(std::string_view argument) {
    for (std::string_view prefix : {"file://localhost/", "file:///", "file:/"})
        if (argument.starts_with(prefix)) return percentDecoded(argument.substr(prefix.size() - 1));
    return std::nullopt;
}

// Some associations put the quotes into the argument.
std::string_view withoutOwnQuotes(std::string_view argument) {
    const bool quoted = argument.size() > 2 && argument.starts_with('"') && argument.ends_with('"');
    return quoted ? argument.substr(1, argument.size() - 2) : argument;
}

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

std::string commandLine(int argc, const char* const* argv) {
    if (argc < 2 || !argv[1] || !*argv[1]) return {};
    std::error_code failed;
    const std::string_view argument = withoutOwnQuotes(argv[1]);
    const std::filesystem::path path = pathOfAddress(argument).value_or(std::string(argument));
    std::filesystem::path absolute = std::filesystem::absolute(path, failed);
    if (failed) absolute = path;  // no current directory
    // Across a link, "a/.." is not always the folder that holds "a".
    if (absolute.native().find("..") == std::string::npos) absolute = absolute.lexically_normal();
    return '"' + absolute.native() + '"';
}

std::string pathInCommandLine(std::string_view line) {
    std::size_t first = line.empty() ? 0 : 1;
    while (first < line.size() && continuesCharacter(line[first])) ++first;
    line.remove_prefix(first);
    std::size_t last = line.size();
    while (last > 0 && continuesCharacter(line[last - 1])) --last;
    return std::string(line.substr(0, last > 0 ? last - 1 : 0));
}

}  // namespace platform
