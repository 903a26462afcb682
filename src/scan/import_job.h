#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>
#include "core/units.h"

#include "engine/database.h"
#include "frame/frame.h"
#include "scan/import_fields.h"
#include "scan/walker.h"

namespace scan {

// What the import panel has to tell the window around it.
struct ImportEvents {
    std::function<void()> walkBegins;  // tree and lists are to be seen
    std::function<void(const core::UnitItem& unit)> unitScanned;
    std::function<void(const core::UnitItem& unit)> unitTyped;
    std::function<void()> walkEnds;  // to its end: the button of what is seen by now is to be down
    std::function<void()> stopped;   // by the user: what the catalogue holds is to be shown anew
    std::function<void()> ended;     // however; the totals may be others now
};

// The job behind Label20: makes a unit of the chosen folder or of what was typed. Runs to its end within the
// click; other handlers get their turn where the walk gives way, and Parar() may be one of them.
class ImportJob {
  public:
    ImportJob(frame::Frame& frame, ImportEvents events, ImportFields fields)
        : m_frame(frame), m_events(std::move(events)), m_fields(fields) {}

    void run();  // does nothing while a job runs

    // The user's stop. Does nothing while no job runs.
    void Parar();
    // Ends a running walk without a word, its rows kept: the window or the catalogue closes.
    void abandon();

  private:
    void catalogueDirectory();
    void generarunidad();
    [[nodiscard]] bool isRefused(const UnitRefusal* refusal);
    void finish(const Counts& counts);
    void close(std::optional<engine::Database>& database);
    void emptyFields();

    frame::Frame& m_frame;
    ImportEvents m_events;
    ImportFields m_fields;
    bool m_running = false;
    bool m_parar = true;       // raised: no job runs, or it has to end
    bool m_abandoned = false;  // it has to end in silence
    QString m_name;            // Text3 and Text4 as the job has left them
    QString m_shownDirectory;
    std::string m_missing;  // from the unit, told behind the totals
    std::string m_tipo;     // of the last hand-made unit
};

}  // namespace scan
