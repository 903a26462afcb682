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

constexpr core::Bilingual leftOut{"no se ha catalogado: ", "left out: "};

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

void ScanProgress::tellLeftOut() const {
    const std::string text = m_leftOut.text(m_language);
    if (!text.empty()) fail(Done, std::string(leftOut.in(m_language)) + text);
}

void ScanProgress::finish(const scan::Counts& counts) {
    hideProgress();
    if (m_onTerminal) std::fprintf(stderr, "%s\n", scan::finalStatus(counts, m_language).c_str());
}

}  // namespace cli
