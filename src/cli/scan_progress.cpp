#include "cli/scan_progress.h"

#include <unistd.h>

#include <cstdio>

#include "cli/console.h"
#include "cli/interrupt.h"
#include "cli/progress.h"
#include "scan/status_text.h"

namespace cli {
namespace {

using namespace std::chrono_literals;
constexpr auto showEvery = 100ms;

// What was left out, for one and for many; the first folder that could not be read is named.
struct Wording {
    core::Bilingual one, many;
};
constexpr Wording unreadFolders{{"1 carpeta que no se pudo leer", "1 folder that could not be read"},
                                {"# carpetas que no se pudieron leer", "# folders that could not be read"}};
constexpr Wording deepFolders{
    {"lo que hay en 1 carpeta del último nivel", "what is in 1 folder at the depth limit"},
    {"lo que hay en # carpetas del último nivel", "what is in # folders at the depth limit"}};
constexpr Wording itemsWithoutFacts{{"la fecha y el tamaño de 1 elemento", "the date and size of 1 item"},
                                    {"la fecha y el tamaño de # elementos", "the date and size of # items"}};
constexpr core::Bilingual leftOut{"no se ha catalogado: ", "left out: "};

std::string counted(std::int64_t number, const Wording& wording, core::Language language) {
    std::string text((number == 1 ? wording.one : wording.many).in(language));
    if (const std::size_t at = text.find('#'); at != text.npos) text.replace(at, 1, std::to_string(number));
    return text;
}

}  // namespace

ScanProgress::ScanProgress(core::Language language)
    : m_language(language), m_onTerminal(isatty(STDERR_FILENO)) {}

void ScanProgress::status(const scan::Counts& counts) {
    if (!m_onTerminal) return;
    const auto now = std::chrono::steady_clock::now();
    if (now < m_nextShow) return;
    m_nextShow = now + showEvery;
    showProgress(scan::runningStatus(counts, m_language));
}

bool ScanProgress::yield(scan::RowSink&) {
    return wasInterrupted();
}

void ScanProgress::gap(scan::Gap gap, std::string_view drivePath) {
    if (gap == scan::Gap::Content)
        m_unread.emplace_back(drivePath);
    else
        ++(gap == scan::Gap::Depth ? m_tooDeep : m_withoutFacts);
}

void ScanProgress::tellLeftOut() const {
    std::string text;
    const auto add = [&](std::int64_t number, const Wording& wording) {
        if (number == 0) return;
        text += (text.empty() ? "" : ", ") + counted(number, wording, m_language);
        if (&wording == &unreadFolders) text += " (" + m_unread.front() + (number > 1 ? ", ...)" : ")");
    };
    add(std::ssize(m_unread), unreadFolders);
    add(m_tooDeep, deepFolders);
    add(m_withoutFacts, itemsWithoutFacts);
    if (!text.empty()) fail(Done, std::string(leftOut.in(m_language)) + text);
}

void ScanProgress::finish(const scan::Counts& counts) {
    hideProgress();
    if (m_onTerminal) std::fprintf(stderr, "%s\n", scan::finalStatus(counts, m_language).c_str());
}

}  // namespace cli
