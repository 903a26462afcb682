#pragma once

#include <optional>
#include <string>

#include "engine/database.h"
#include "frame/frame.h"
#include "scan/import_fields.h"
#include "scan/import_host.h"
#include "scan/walker.h"

namespace scan {

// The job behind Label20: makes a unit of the chosen folder or of what was typed. Runs to its end within the
// click; other handlers get their turn where the walk gives way, and Parar() may be one of them.
class ImportJob {
  public:
    ImportJob(frame::Frame& frame, ImportHost& host, ImportFields fields)
        : m_frame(frame), m_host(host), m_fields(fields) {}

    void run();

    // The user's stop. Does nothing while no job runs.
    void Parar();
    // Ends a running walk without a word, when the window closes.
    void abandon() { m_parar = true; }
    [[nodiscard]] bool isRunning() const { return !m_parar; }

  private:
    void catalogueDirectory();
    void generarunidad();
    [[nodiscard]] bool isRefused(const Refusal* refusal);
    void finish(const Counts& counts);
    void close(std::optional<engine::Database>& database);

    frame::Frame& m_frame;
    ImportHost& m_host;
    ImportFields m_fields;
    bool m_parar = true;  // raised: no job runs, or it has to end
    std::string m_tipo;   // of the last hand-made unit
};

}  // namespace scan
