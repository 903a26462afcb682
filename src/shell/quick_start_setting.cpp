#include "shell/quick_start_setting.h"

#include <string_view>

#include "platform/settings.h"

namespace shell {

namespace {

constexpr std::string_view key = "iniciorapido";
constexpr std::string_view on = "si";
constexpr std::string_view off = "no";

}  // namespace

bool isQuickStartOn() {
    return platform::GetSetting(key) == on;
}

void saveQuickStart(bool wanted) {
    platform::SaveSetting(key, wanted ? on : off);
}

}  // namespace shell
