#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/language.h"
#include "engine/database.h"

namespace core {

// The units of a catalogue. There is no table of them: a unit is the rows that share one `disco`.

struct Unit {
    std::string disco;
    std::string tipo;  // of its first row, which tells the unit's kind
    int picture = 0;   // 0: a kind that no list shows
    std::int64_t folders = 0;
    std::int64_t files = 0;
    std::int64_t kilobytes = 0;
};

// A unit as the tree and the combos show it.
struct UnitItem {
    std::string disco;
    int picture = 0;
};

// Every `disco`, in the engine's text order; spellings that differ in case are units apart.
[[nodiscard]] engine::Result<std::vector<std::string>> unitNames(engine::Database& database);

// `tipo` of a unit's first row; empty when there is no such unit.
[[nodiscard]] engine::Result<std::string> unitTipo(engine::Database& database, std::string_view disco);

// All units with their totals, in one pass over the rows.
[[nodiscard]] engine::Result<std::vector<Unit>> units(engine::Database& database);

// The number of rows of the catalogue, after which the `numero` of a new unit counts on.
[[nodiscard]] engine::Result<long long> totalRows(engine::Database& database);

// The totals of the whole catalogue.
struct Counters {
    long long contadorunidades = 0;
    long long contadorcarpetas = 0;
    long long contadorarchivos = 0;
};
[[nodiscard]] engine::Result<Counters> countAll(engine::Database& database);

// "  Unidades: 2  Carpetas: 10  Archivos: 300" or the same in English.
[[nodiscard]] std::string statusText(const Counters& counters, Language language);

}  // namespace core
