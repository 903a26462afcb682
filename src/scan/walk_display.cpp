#include "scan/walk_display.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <limits>

#include "frame/pointer.h"
#include "frame/status_band.h"
#include "scan/status_text.h"

namespace scan {
namespace {

using namespace std::chrono_literals;
constexpr auto showEvery = 50ms;

// Sees every event before its receiver does.
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
                m_rows.commit();
        }
        return false;
    }

  private:
    RowSink& m_rows;
};

}  // namespace

void WalkDisplay::started(std::int64_t topLevelFolders) {
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    m_frame.status.showProgress(static_cast<int>(std::clamp<std::int64_t>(topLevelFolders, 1, most)));
}

void WalkDisplay::status(const Counts& counts) {
    const auto now = std::chrono::steady_clock::now();
    if (now < m_nextShow) return;
    m_nextShow = now + showEvery;
    m_frame.status.setText(runningStatus(counts, m_frame.idioma));
}

void WalkDisplay::topLevelDone() {
    m_frame.status.advanceProgress();
}

bool WalkDisplay::yield(RowSink& rows) {
    const CommitBeforeHandlers guard(rows);
    frame::yieldToQueue();
    return m_stop;
}

}  // namespace scan
