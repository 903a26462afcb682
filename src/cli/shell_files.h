#pragma once

#include <string>
#include <string_view>

namespace cli {

// What the shells are told of the commands, made from their table: templates in which marks like "@OPTIONS@"
// are replaced. In the manual page "%scan%" stands for the usage of `scan`.
[[nodiscard]] std::string bashCompletion(std::string templateText);
[[nodiscard]] std::string zshCompletion(std::string templateText);
[[nodiscard]] std::string fishCompletion(std::string templateText);
[[nodiscard]] std::string manualPage(std::string templateText);

}  // namespace cli
