#include "cli/console.h"

#include <QList>
#include <algorithm>
#include <cstdio>

#include "cli/output.h"
#include "cli/progress.h"
#include "core/failure.h"
#include "core/text.h"
#include "platform/qtext.h"

namespace cli {
int fail(ExitStatus status, std::string_view reason) {
    hideProgress();
    std::fprintf(stderr, "zarquelin-cli: %s\n", shown(reason).c_str());
    return status;
}

int fail(ExitStatus status, std::string_view subject, std::string_view reason) {
    const bool isNamed = !subject.empty() && reason.starts_with(subject) && reason.size() > subject.size() &&
                         (reason[subject.size()] == ' ' || reason[subject.size()] == ':');
    if (isNamed) return fail(status, reason);
    return fail(status, (subject.empty() ? "\"\"" : std::string(subject)) + ": " + std::string(reason));
}

int unusable(const std::string& catalogue, const engine::Error& error, core::Language language) {
    std::string reason = error.text;
    if (reason.starts_with(catalogue + ": ")) reason.erase(0, catalogue.size() + 2);
    if (language == core::Language::Spanish)
        reason = std::string(core::failureSentence(error, language)) + " (" + reason + ')';
    return fail(UnusableCatalogue, catalogue, reason);
}

std::optional<engine::Database> openCatalogue(const std::string& path, core::Language language,
                                              engine::Use use) {
    auto database = engine::OpenDatabase(path, use);
    if (!database) {
        unusable(path, database.error(), language);
        return std::nullopt;
    }
    return std::move(*database);
}

bool canBeTyped(std::string_view text, std::string_view allowed) {
    const auto characters = platform::qtext(text).toUcs4();
    return std::ranges::all_of(characters, [allowed](char32_t c) { return core::isAllowed(c, allowed); });
}

}  // namespace cli
