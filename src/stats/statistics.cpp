#include "stats/statistics.h"

#include <numeric>

#include "core/kilobytes.h"

namespace stats {
namespace {

engine::Result<std::int64_t> countRows(engine::Database& database, const std::string& sqlestadistica) {
    auto rows = TRY(database.OpenRecordset(sqlestadistica));
    const std::int64_t count = rows.RecordCount();
    if (const engine::Error* error = rows.error()) return std::unexpected(*error);
    return count;
}

}  // namespace

std::int64_t Statistics::percentage(std::size_t category) const {
    const double share =
        static_cast<double>(cantidadcategoria[category]) / static_cast<double>(totalarchivos);
    return core::roundHalfEven(share * 100);
}

engine::Result<Statistics> countScope(engine::Database& database, const Scope& scope, TotalLimit limit,
                                      const Progress& progress) {
    Statistics result;
    const auto step = [&] {
        if (progress) progress();
    };
    for (std::size_t category = 0; category < restIndex; ++category) {
        const auto count = TRY(countRows(database, selectCategory(scope, category)));
        result.cantidadcategoria[category] = count;
        step();
    }
    const auto total = TRY(countRows(database, selectTotal(scope)));
    if (total > static_cast<std::int64_t>(limit))
        return std::unexpected(engine::Error{overflow, "too many files to be counted"});
    result.totalarchivos = total;
    if (result.totalarchivos < 1) return result;
    step();
    const auto& counts = result.cantidadcategoria;
    result.cantidadcategoria[restIndex] =
        result.totalarchivos - std::accumulate(counts.begin(), counts.begin() + restIndex, std::int64_t{0});
    return result;
}

std::string scopeTitle(core::Language idioma, std::string_view place) {
    constexpr core::Bilingual words{" Estadísticas de:  ", " Statistics of:  "};
    return std::string{words.in(idioma)} + std::string{place};
}

std::string_view categoryName(core::Language idioma, const Scope& scope, std::size_t category) {
    return categories[category].caption.in(scope.path ? core::Language::Spanish : idioma);
}

}  // namespace stats
