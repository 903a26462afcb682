#include "shell/kept_choices.h"

#include "frame/frame.h"
#include "platform/qtext.h"
#include "platform/settings.h"

namespace shell {

namespace {

constexpr std::string_view languageKey = "idioma";
constexpr core::Bilingual languages = {"Español", "English"};
constexpr std::string_view quickStartKey = "iniciorapido";
constexpr std::string_view on = "si", off = "no";

constexpr core::Bilingual text = {"Los cambios tendrán lugar la proxima vez que inicie esta aplicación.",
                                  "Changes will take place the next time you initiate this aplication."};
constexpr core::Bilingual title = {"Cambio de idioma", "Languaje change"};

}  // namespace

bool isLanguageChosen() {
    return !platform::GetSetting(languageKey).empty();
}

core::Language chosenLanguage() {
    return core::languageOf(platform::GetSetting(languageKey));
}

void saveLanguage(core::Language language) {
    platform::SaveSetting(languageKey, languages.in(language));
}

void chooseLanguage(core::Language language, frame::Frame& frame) {
    saveLanguage(language);
    frame.messages.show(platform::qtext(text.in(frame.idioma)), platform::qtext(title.in(frame.idioma)),
                        frame::MessageStyle::Information);
}

bool isQuickStartOn() {
    return platform::GetSetting(quickStartKey) == on;
}

void saveQuickStart(bool wanted) {
    platform::SaveSetting(quickStartKey, wanted ? on : off);
}

}  // namespace shell
