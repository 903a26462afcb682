#pragma once

#include <string>

#include "core/language.h"
#include "platform/jet/database.h"

namespace stats {

// The counters of the whole catalogue, as the status line shows them.
struct CatalogueTotals {
    long long contadorunidades = 0;
    long long contadorcarpetas = 0;
    long long contadorarchivos = 0;
    bool operator==(const CatalogueTotals&) const = default;
};

[[nodiscard]] jet::Result<bool> hasRows(jet::Database& database);
[[nodiscard]] jet::Result<CatalogueTotals> countCatalogue(jet::Database& database);

// "  Unidades: 2  Carpetas: 30  Archivos: 400"
[[nodiscard]] std::string totalsLine(const CatalogueTotals& totals, const core::Rotulos& rotulos);

}  // namespace stats
