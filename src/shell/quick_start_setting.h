#pragma once

namespace shell {

// The setting "iniciorapido": whether the quick start is shown. Off until the first choice of a language.
[[nodiscard]] bool isQuickStartOn();
void saveQuickStart(bool on);

}  // namespace shell
