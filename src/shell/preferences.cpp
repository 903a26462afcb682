#include "shell/preferences.h"

#include "platform/settings.h"
#include "shell/frame/captions.h"
#include "shell/frame/messages.h"

namespace shell {

namespace {

constexpr std::string_view languageKey = "idioma";
constexpr std::string_view quickStartKey = "iniciorapido";
constexpr std::string_view yes = "si";
constexpr std::string_view no = "no";

constexpr core::Bilingual nextStart = {"Los cambios tendrán lugar la proxima vez que inicie esta aplicación.",
                                       "Changes will take place the next time you initiate this aplication."};
constexpr core::Bilingual nextStartTitle = {"Cambio de idioma", "Languaje change"};

}  // namespace

bool isLanguageChosen() {
    return !platform::GetSetting(languageKey).empty();
}

core::Language chosenLanguage() {
    return core::languageOf(platform::GetSetting(languageKey));
}

void saveLanguage(core::Language language) {
    platform::SaveSetting(languageKey, core::Bilingual{"Español", "English"}.in(language));
}

void changeLanguage(core::Language language, core::Language running, Messages& messages) {
    saveLanguage(language);
    messages.show(toQString(nextStart.in(running)), toQString(nextStartTitle.in(running)),
                  MessageStyle::Information);
}

bool isQuickStartOn() {
    return platform::GetSetting(quickStartKey) == yes;
}

void saveQuickStart(bool on) {
    platform::SaveSetting(quickStartKey, on ? yes : no);
}

}  // namespace shell
