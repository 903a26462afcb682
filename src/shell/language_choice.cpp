#include "shell/language_choice.h"

#include "controls/qtext.h"
#include "frame/captions.h"
#include "frame/frame.h"
#include "platform/settings.h"

namespace shell {

namespace {

constexpr std::string_view key = "idioma";
constexpr core::Bilingual values = {"Español", "English"};

constexpr core::Bilingual text = {"Los cambios tendrán lugar la proxima vez que inicie esta aplicación.",
                                  "Changes will take place the next time you initiate this aplication."};
constexpr core::Bilingual title = {"Cambio de idioma", "Languaje change"};

}  // namespace

bool isLanguageChosen() {
    return !platform::GetSetting(key).empty();
}

core::Language chosenLanguage() {
    return core::languageOf(platform::GetSetting(key));
}

void saveLanguage(core::Language language) {
    platform::SaveSetting(key, values.in(language));
}

void chooseLanguage(core::Language language, frame::Frame& frame) {
    saveLanguage(language);
    frame.messages.show(controls::qtext(text.in(frame.idioma)), controls::qtext(title.in(frame.idioma)),
                        frame::MessageStyle::Information);
}

}  // namespace shell
