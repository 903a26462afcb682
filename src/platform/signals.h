#pragma once

namespace platform {

// True for a signal that whoever started the program has shut out, as nohup does and a shell for the
// background of a script. It is to stay so.
[[nodiscard]] bool isSignalIgnored(int number);

}  // namespace platform
