#pragma once

#include <string>
#include <string_view>

namespace platform {

// The command line as a desktop association delivers it: the first argument between double quotes, as an
// absolute native path. A "file:" address is turned into its path. Empty when there is no argument.
[[nodiscard]] std::string commandLine(int argc, const char* const* argv);

// The path in such a line: its first and last character are cut off without looking at them.
[[nodiscard]] std::string pathInCommandLine(std::string_view line);

}  // namespace platform
