#include "stats/catalogue_totals.h"

#include <string_view>

namespace stats {
namespace {

jet::Result<long long> countOf(jet::Database& database, std::string_view sql) {
    auto rows = database.OpenRecordset(sql);
    if (!rows) return std::unexpected(rows.error());
    return rows->RecordCount();
}

}  // namespace

jet::Result<bool> hasRows(jet::Database& database) {
    const auto rows = database.OpenRecordset("select * from datos order by numero");
    if (!rows) return std::unexpected(rows.error());
    return !rows->Eof();
}

jet::Result<CatalogueTotals> countCatalogue(jet::Database& database) {
    const auto units = countOf(database, "select disco from datos group by disco");
    if (!units) return std::unexpected(units.error());
    const auto folders =
        countOf(database, "select * from datos where  tipo =('Carpeta de archivos')  order by carpeta ");
    if (!folders) return std::unexpected(folders.error());
    const auto files = countOf(database, "select * from datos where  tipo =('archivo')  order by archivo ");
    if (!files) return std::unexpected(files.error());
    return CatalogueTotals{*units, *folders, *files};
}

std::string totalsLine(const CatalogueTotals& totals, const core::Rotulos& rotulos) {
    return rotulos.rotuloprefijounidades + std::to_string(totals.contadorunidades) +
           rotulos.rotuloprefijocarpetas + std::to_string(totals.contadorcarpetas) +
           rotulos.rotuloprefijoarchivos + std::to_string(totals.contadorarchivos);
}

}  // namespace stats
