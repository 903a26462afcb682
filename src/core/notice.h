#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace core {

// What a message box is titled where it has no title of its own.
inline constexpr std::string_view boxTitle = "zarquelin";

// A message that a procedure has for its user. The window shows it as a message box; the command line has
// its own words.
struct Notice {
    enum class Style { Exclamation = 48, Information = 64 };
    std::string text;
    std::string title{boxTitle};
    Style style = Style::Exclamation;
    bool operator==(const Notice&) const = default;
};

// Returns when the user has answered, who may have put a disc into a drive meanwhile.
using Tell = std::function<void(const Notice&)>;

}  // namespace core
