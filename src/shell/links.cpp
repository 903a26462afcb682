#include "shell/links.h"

#include <string>

#include "platform/shell_open.h"

namespace shell {

namespace {

constexpr core::Bilingual websiteFile = {"zarquelin_español.url", "zarquelin.url"};
constexpr core::Bilingual supportFile = {"Soporte.url", "Support.url"};
constexpr core::Bilingual feedbackAddress = {"mailto:opinion@zarquelin.example",
                                             "mailto:feedback@zarquelin.example"};
constexpr std::string_view authorAddress = "mailto:zarquelin@zarquelin.example";
constexpr const char* mailFolder = "/";  // a mail program that stays open keeps no disc from being taken out

constexpr const core::Bilingual& fileOf(Link link) {
    return link == Link::Website ? websiteFile : supportFile;
}

constexpr core::Language other(core::Language language) {
    return language == core::Language::Spanish ? core::Language::English : core::Language::Spanish;
}

}  // namespace

void openLink(Link link, core::Language idioma, const std::string& folder) {
    for (const core::Language language : {idioma, other(idioma)}) {
        const std::string file = folder + "/" + std::string(fileOf(link).in(language));
        if (!platform::FileExists(file)) continue;
        (void)platform::ShellExecute(file, folder);
        return;
    }
}

void openFeedback(core::Language idioma) {
    (void)platform::ShellExecute(std::string(feedbackAddress.in(idioma)), mailFolder);
}

void openAuthorMail() {
    (void)platform::ShellExecute(std::string(authorAddress), mailFolder);
}

}  // namespace shell
