#pragma once

#include <QPointer>
#include <optional>
#include <string>

#include "core/units.h"
#include "engine/database.h"
#include "stats/statistics.h"
#include "stats/statistics_window.h"

class QWidget;
namespace frame {
struct Frame;
}

namespace stats {

// What a run of the statistics needs to know of the place that the user browses.
struct Selection {
    bool treeIsEmpty = true;
    std::optional<std::string> node;             // the selected node's text
    bool isUnit = false;                         // whether such a text is a unit's, by `listanivel1`
    std::string place;                           // the text of ImageCombo1
    std::string rutaactual;                      // as the last summary of a folder left it
    std::optional<std::string> firstListedUnit;  // sub-item 8 of ListView1's first item
};

// The menu entries `graficos` and `graficos2` and toolbar button 9. Owns the statistics window, which comes
// into being on first use.
class StatisticsAction {
  public:
    StatisticsAction(frame::Frame& frame, QWidget* window);

    // Counts what the selected node holds and shows the statistics window; afterwards the status line shows
    // the catalogue's totals. Says so when there are no files. Any other failure ends it without a message,
    // with the status line and the progress bar as they were; the tool tip of that line tells why. `counters`
    // are those the status line showed last.
    void graficar1(const Selection& selection, core::Counters& counters);

    [[nodiscard]] Form4* window() const { return m_form; }  // nullptr before the first run

  private:
    [[nodiscard]] engine::Result<bool> showScope(engine::Database& database, const Selection& selection);
    [[nodiscard]] Form4& form();
    void explain(const engine::Error& error);
    void rewriteTotals(engine::Database& database, core::Counters& counters);

    frame::Frame& m_frame;
    QWidget* m_parent;
    QPointer<Form4> m_form;
};

}  // namespace stats
