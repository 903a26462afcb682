#pragma once

#include <string>

#include "cli/arguments.h"
#include "cli/command.h"
#include "core/catalog_row.h"
#include "platform/drives.h"

namespace cli {

// "-0" of the commands that print rows.
inline constexpr Option pathsOption{
    "-0", "", {"rutas del sistema, cada una terminada en NUL", "native paths, each ended by a NUL"}};

// Writes rows for programs where that is asked for: as JSON, or as native paths for `xargs -0`. Columns for
// people are the command's own.
class RowOutput {
  public:
    explicit RowOutput(const Invocation& invocation);

    // False when the row is to be printed for people, which is left to the caller.
    bool forPrograms(const core::CatalogRow& row);
    // Puts a catalogue's path before the rows that follow.
    void setCatalogue(std::string path) { m_catalogue = std::move(path); }

    // The command's status, given what was found: a row that has no native path today is told, not passed
    // over.
    [[nodiscard]] int status(bool foundAny) const;

  private:
    const Invocation& m_invocation;
    bool m_paths;
    platform::Drives m_drives;
    std::string m_catalogue;
    long long m_withoutPath = 0;
};

}  // namespace cli
