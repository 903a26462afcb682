#pragma once

#include <cstdint>
#include <string>

#include "engine/database.h"
#include "platform/drives.h"
#include "scan/refusal.h"
#include "scan/walker.h"

namespace scan {

// What the user asks for: a folder, by its native path, as a new unit.
struct ScanRequest {
    std::string name;
    std::string directory;
    Exclusion exclusion{};
};

inline constexpr core::Bilingual inNoDrive{"no está en ninguna unidad con letra (vea ZARQUELIN_DRIVES)",
                                           "lies in no drive with a letter (see ZARQUELIN_DRIVES)"};

inline constexpr core::Bilingual nothingThere{"no hay nada que catalogar: ¿está el medio en su sitio?",
                                              "there is nothing to catalogue: is the medium in its place?"};

// A field that is empty, as a reason not to scan.
[[nodiscard]] const UnitRefusal* refusalOf(const ScanRequest& request);
// The first reason not to scan; nullptr to go ahead. Fails where the catalogue cannot be read.
[[nodiscard]] engine::Result<const UnitRefusal*> refusalOf(const ScanRequest& request,
                                                           engine::Database& database);

// True when the catalogue has rows of a unit of that name.
[[nodiscard]] engine::Result<bool> unitExists(engine::Database& database, const std::string& name);

// Why no rows can be written now (another program writes, the file is read-only), if none can: to be asked
// before a walk, which may take an hour.
[[nodiscard]] engine::Result<> canWrite(engine::Database& database);

// The number of rows of the catalogue: the `numero` after which a new unit counts on.
[[nodiscard]] engine::Result<std::int64_t> lastNumero(engine::Database& database);

// Where the walk of a request begins: with an empty drivePath when no drive letter leads there, so that rows
// could not tell where they belong.
[[nodiscard]] WalkStart walkStart(const ScanRequest& request, const platform::Drives& drives);
// The same, with the number that its rows count on from.
[[nodiscard]] engine::Result<WalkStart> walkStart(const ScanRequest& request, engine::Database& database,
                                                  const platform::Drives& drives);

}  // namespace scan
