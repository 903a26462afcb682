#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "engine/recordset.h"

namespace core {

// One row of `datos`. Text is UTF-8; paths are in drive form ("E:\fotos\2003"). Names that came from a disk
// have every apostrophe replaced by an acute accent.
struct CatalogRow {
    std::int64_t numero = 0;             // insertion order; a sort key, not unique
    std::string ruta;                    // folder: its own path; file: the path of its folder
    std::string carpeta;                 // last component of ruta
    std::optional<std::string> archivo;  // files only
    std::string nivel;                   // "1" to "12", depth below the unit
    double fecha = 0;                    // serial days since 30 December 1899, local time
    std::optional<std::int64_t> largo;   // whole kilobytes; files only
    std::string tipo;                    // one of the words in unit_kinds.h
    std::string disco;                   // unit name followed by " :"
    std::optional<std::string> comentario;
};

// The current row of a `select *`; columns that the select lacks stay empty.
[[nodiscard]] CatalogRow readRow(const engine::Recordset& rows);
// The same into a row whose texts keep their room, where many rows are read one after the other.
void readRow(const engine::Recordset& rows, CatalogRow& row);

}  // namespace core
