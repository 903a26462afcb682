#include "cli/scan_progress.h"

#include <unistd.h>

#include <cstdio>

#include "cli/interrupt.h"
#include "scan/status_text.h"

namespace cli {
namespace {

using namespace std::chrono_literals;
constexpr auto showEvery = 100ms;

}  // namespace

ScanProgress::ScanProgress(core::Language language)
    : m_language(language), m_onTerminal(isatty(STDERR_FILENO)) {}

void ScanProgress::status(const scan::Counts& counts) {
    if (!m_onTerminal) return;
    const auto now = std::chrono::steady_clock::now();
    if (now < m_nextShow) return;
    m_nextShow = now + showEvery;
    std::fprintf(stderr, "\r%s", scan::runningStatus(counts, m_language).c_str());
}

bool ScanProgress::yield(scan::RowWriter&) {
    return wasInterrupted();
}

void ScanProgress::finish(const scan::Counts& counts) {
    if (m_onTerminal) std::fprintf(stderr, "\r%s\n", scan::finalStatus(counts, m_language).c_str());
}

}  // namespace cli
