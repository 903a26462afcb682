#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/language.h"
#include "engine/database.h"

namespace browse {

// What lies under a unit or folder: all of it, or the error that kept it from being read. Kilobytes are the
// sum of the files' rounded sizes.
struct Totals {
    long long folders = 0;
    long long files = 0;
    std::int64_t kilobytes = 0;
    bool operator==(const Totals&) const = default;
};

// A clicked unit. Files of one kilobyte or less do not enter its size, and every row that is no file counts
// as a folder, the single row of a hand-made unit included.
[[nodiscard]] engine::Result<Totals> clickedUnitTotals(engine::Database& database, std::string_view disco);

// A unit reached by going up: the size takes in every file.
[[nodiscard]] engine::Result<Totals> raisedUnitTotals(engine::Database& database, std::string_view disco);

// As the properties window tells a unit: files of one kilobyte or less do not enter its size, and only real
// folders count, not the row of a hand-made unit.
[[nodiscard]] engine::Result<Totals> propertiesTotals(engine::Database& database, const std::string& disco);

// A folder: rows of the unit deeper than `nivelactual` whose path holds `rutaactual`, the folder's
// path below the unit. The files directly in the folder are not among them.
[[nodiscard]] engine::Result<Totals> folderTotals(engine::Database& database, std::string_view discoactual,
                                                  std::string_view rutaactual, int nivelactual);

// "  Unidad: X :  Carpetas: N  Archivos: N" and "  Carpetas: N  Archivos: N".
[[nodiscard]] std::string unitStatus(std::string_view disco, const Totals& totals,
                                     const core::Rotulos& rotulos);
[[nodiscard]] std::string folderStatus(const Totals& totals, const core::Rotulos& rotulos);

}  // namespace browse
