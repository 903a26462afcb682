#pragma once

#include <functional>
#include <string>

namespace platform {

// Opens native paths, link files and mail links with the desktop's default program. One replaceable seam:
// tests put in a function that records what would have been opened.
using ShellOpener = std::function<bool(const std::string& target, const std::string& folder)>;

// False when nothing could be started. `target` is a native path or a URL ("mailto:..."); `folder` the
// working folder. A ".url" link file is opened by its URL= line. What isHarmless refuses is not opened.
bool ShellExecute(const std::string& target, const std::string& folder);
void setShellOpener(ShellOpener opener);  // an empty function restores the desktop's own

// Whether opening a file can do no more than show it. Not so for a link file that leads anywhere but to an
// address of the web or of mail, and for a desktop entry, under whatever name, which could start a program.
[[nodiscard]] bool isHarmless(const std::string& file);

// The URL= line of an internet shortcut; empty when there is none.
[[nodiscard]] std::string linkTarget(const std::string& linkFile);

}  // namespace platform
