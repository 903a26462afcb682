#pragma once

#include <expected>
#include <string>
#include <string_view>
#include <vector>

#include "core/catalog_row.h"
#include "engine/database.h"
#include "platform/drives.h"

namespace core {

// Finding what a person names: a unit by its name, a row by its unit and a path. What equals the name byte
// for byte is meant; else what does with "´" in place of each apostrophe, since a catalogue holds none; else
// what equals it without regard to case, if that is one thing only.

struct LookupFailure {
    enum Kind { Missing, Several, Unreadable };
    Kind kind = Missing;
    std::vector<std::string> candidates = {};  // of Several: the names or paths that it could be
    engine::Error error = {};                  // of Unreadable
};
template <class T>
using Lookup = std::expected<T, LookupFailure>;

// The `disco` of the unit that is called `name`, which is without the " :" of its rows.
[[nodiscard]] Lookup<std::string> findUnit(engine::Database& database, std::string_view name);

struct FoundRow {
    enum Kind { Unit, Folder, File, Entry };  // Entry: the row of a hand-made unit
    Kind kind = Unit;
    CatalogRow row = {};  // of a Unit, only `disco` is filled in
    std::vector<std::string> folders =
        {};                        // below the unit, outermost first: of a Folder, itself the last one
    bool withApostrophes = false;  // the path was given with apostrophes, where the row has "´"
};

// The row of the unit `disco` that a path names. It may be written relative to the unit with / or \, in drive
// form as stored, or as a native path, in any bytes that a file name may hold; "" and "." name the unit. A
// native path that equals no row's is looked for as if its drive were the one of the row. Of a file and a
// folder of one name the preferred kind is taken; a slash at the end names a folder.
[[nodiscard]] Lookup<FoundRow> findRow(engine::Database& database, const std::string& disco,
                                       std::string_view path, const platform::Drives& drives,
                                       FoundRow::Kind preferred);

// The path of a row in drive form: of a file, that of its folder and its name.
[[nodiscard]] std::string drivePathOf(const CatalogRow& row);

// The names that lead from the unit to a row, outermost first, its own the last.
[[nodiscard]] std::vector<std::string> namesBelowUnit(const CatalogRow& row);

}  // namespace core
