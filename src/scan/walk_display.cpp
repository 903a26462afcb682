#include "scan/walk_display.h"

#include <QCoreApplication>
#include <QEvent>
#include <QProgressBar>
#include <algorithm>
#include <limits>
#include <utility>

#include "frame/pointer.h"
#include "frame/status_band.h"
#include "scan/status_text.h"

namespace scan {
namespace {

using namespace std::chrono_literals;
constexpr auto showEvery = 50ms;

// Sees every event before its receiver does. What comes while a commit waits is only let through so that the
// window is painted, and cannot begin anything.
class CommitBeforeHandlers : public QObject {
  public:
    explicit CommitBeforeHandlers(RowSink& rows) : m_rows(rows) { qApp->installEventFilter(this); }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::Paint:
            case QEvent::UpdateRequest:
            case QEvent::LayoutRequest:
                break;  // cannot look at the catalogue
            default:
                if (std::exchange(m_committing, true)) break;
                m_rows.commit();
                m_committing = false;
        }
        return false;
    }

  private:
    RowSink& m_rows;
    bool m_committing = false;
};

}  // namespace

void WalkDisplay::started(std::int64_t topLevelFolders) {
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    m_topLevelFolders = static_cast<int>(std::clamp<std::int64_t>(topLevelFolders, 1, most));
    m_frame.status.showProgress(m_topLevelFolders);
}

void WalkDisplay::status(const Counts& counts) {
    const auto now = std::chrono::steady_clock::now();
    if (now < m_nextShow) return;
    m_nextShow = now + showEvery;
    m_frame.status.setText(runningStatus(counts, m_frame.idioma));
}

void WalkDisplay::topLevelDone() {
    m_frame.status.setProgress(++m_topLevelDone);
}

void WalkDisplay::paint() {
    if (m_painting) return;
    m_painting = true;
    frame::letWindowsPaint();
    m_painting = false;
}

bool WalkDisplay::yield(RowSink& rows) {
    const CommitBeforeHandlers guard(rows);
    frame::yieldToQueue();
    if (!m_stop && m_frame.status.progress().isHidden()) {  // other work has used the bar meanwhile
        m_frame.status.showProgress(m_topLevelFolders);
        m_frame.status.setProgress(m_topLevelDone);
    }
    return m_stop;
}

}  // namespace scan
