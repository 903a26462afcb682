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

// What a run of the statistics reads of the browsing state. The main window answers.
class StatisticsHost {
  public:
    virtual ~StatisticsHost() = default;
    [[nodiscard]] virtual bool treeIsEmpty() const = 0;
    // The text of the selected node; whether such a text is a unit's, by `listanivel1`.
    [[nodiscard]] virtual std::optional<std::string> selectedNode() const = 0;
    [[nodiscard]] virtual bool isUnit(const std::string& nodeText) const = 0;
    // The text of ImageCombo1.
    [[nodiscard]] virtual std::string place() const = 0;
    // As the last summary of a folder left it.
    [[nodiscard]] virtual std::string rutaactual() const = 0;
    // Sub-item 8 of the first item of ListView1; nothing when the list is empty.
    [[nodiscard]] virtual std::optional<std::string> firstListedUnit() const = 0;
    // The catalogue's counters as the status line showed them last.
    [[nodiscard]] virtual core::Counters& counters() = 0;
};

// The menu entries `graficos` and `graficos2` and toolbar button 9. Owns the statistics window, which comes
// into being on first use.
class StatisticsAction {
  public:
    StatisticsAction(frame::Frame& frame, StatisticsHost& host, QWidget* window);

    // Counts what the selected node holds and shows the statistics window; afterwards the status line shows
    // the catalogue's totals. Says so when there are no files. Any other failure ends it without a message,
    // with the status line and the progress bar as they were.
    void graficar1();

    [[nodiscard]] Form4* window() const { return m_form; }  // nullptr before the first run

  private:
    [[nodiscard]] engine::Result<bool> showScope();
    [[nodiscard]] engine::Result<Scope> selectedScope(const std::string& node, bool unit) const;
    [[nodiscard]] Form4& form();
    void rewriteTotals();

    frame::Frame& m_frame;
    StatisticsHost& m_host;
    QWidget* m_parent;
    QPointer<Form4> m_form;
    std::optional<engine::Database>
        m_database;  // a run that finds no files leaves it open until the next one
};

}  // namespace stats
