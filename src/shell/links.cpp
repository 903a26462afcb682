#include "shell/links.h"

#include <string>

#include "platform/files.h"
#include "platform/shell_open.h"

namespace shell {

namespace {

constexpr core::Bilingual websiteFile = {"zarquelin_español.url", "zarquelin.url"};
constexpr core::Bilingual supportFile = {"Soporte.url", "Support.url"};
constexpr core::Bilingual feedbackAddress = {"mailto:opinion@zarquelin.example",
                                             "mailto:feedback@zarquelin.example"};
constexpr std::string_view authorAddress = "mailto:zarquelin@zarquelin.example";

void openLinkFile(std::string_view name) {
    const std::string folder = platform::programFolder();
    const std::string file = folder + "/" + std::string(name);
    if (platform::FileExists(file)) (void)platform::ShellExecute(file, folder);
}

}  // namespace

void openWebsite(core::Language idioma) {
    openLinkFile(websiteFile.in(idioma));
}

void openSupport(core::Language idioma) {
    openLinkFile(supportFile.in(idioma));
}

void openFeedback(core::Language idioma) {
    (void)platform::ShellExecute(std::string(feedbackAddress.in(idioma)), "c:\\");
}

void openAuthorMail() {
    (void)platform::ShellExecute(std::string(authorAddress), "c:\\");
}

}  // namespace shell
