#include "core/units.h"

#include <unordered_map>

#include "core/kilobytes.h"
#include "core/unit_kinds.h"

namespace core {
namespace {

// The end of a walk over rows is either the last row or a row that could not be read.
engine::Result<> walkedToTheEnd(const engine::Recordset& rows) {
    if (rows.error()) return std::unexpected(*rows.error());
    return {};
}

engine::Result<long long> recordCount(engine::Database& database, std::string_view select) {
    auto rows = TRY(database.OpenRecordset(select));
    const long long count = rows.RecordCount();
    TRY(walkedToTheEnd(rows));
    return count;
}

struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
};
using UnitsByName = std::unordered_map<std::string, Unit, Hash, std::equal_to<>>;

// What the rows of each unit come to.
engine::Result<UnitsByName> totals(engine::Database& database) {
    auto rows = TRY(database.OpenRecordset("select disco, tipo, largo from datos"));
    UnitsByName units;
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::string_view disco = rows.Field("disco").text();
        auto found = units.find(disco);
        if (found == units.end()) found = units.emplace(disco, Unit{}).first;
        Unit& unit = found->second;
        const std::string_view tipo = rows.Field("tipo").text();
        if (tipo == folderTipo) ++unit.folders;
        if (tipo != fileTipo) continue;
        ++unit.files;
        unit.kilobytes = addKilobytes(unit.kilobytes, rows.Field("largo").integer());
    }
    TRY(walkedToTheEnd(rows));
    return units;
}

}  // namespace

engine::Result<std::vector<std::string>> unitNames(engine::Database& database) {
    auto rows = TRY(database.OpenRecordset("select disco from datos group by disco order by disco"));
    std::vector<std::string> names;
    for (; !rows.Eof(); rows.MoveNext()) names.emplace_back(rows.Field("disco").text());
    TRY(walkedToTheEnd(rows));
    return names;
}

engine::Result<std::string> unitTipo(engine::Database& database, std::string_view disco) {
    auto rows = TRY(database.OpenRecordset("select disco, tipo from datos where disco=('" +
                                           std::string(disco) + "') order by disco"));
    std::string tipo(rows.Field("tipo").text());
    TRY(walkedToTheEnd(rows));
    return tipo;
}

engine::Result<std::vector<Unit>> units(engine::Database& database) {
    const auto names = TRY(unitNames(database));
    auto totalsOf = totals(database);  // g++ 12 warns of TRY here
    if (!totalsOf) return std::unexpected(totalsOf.error());
    std::vector<Unit> units;
    for (const std::string& disco : names) {
        // A name that no statement can carry has no kind, but its rows count.
        auto tipo = unitTipo(database, disco);
        if (!tipo && tipo.error().number != engine::error::syntaxInExpression)
            return std::unexpected(tipo.error());
        Unit& unit = units.emplace_back(std::move((*totalsOf)[disco]));
        unit.disco = disco;
        unit.tipo = std::move(tipo).value_or("");
        unit.picture = unitPicture(unit.tipo);
    }
    return units;
}

engine::Result<long long> totalRows(engine::Database& database) {
    return recordCount(database, "select * from datos");
}

engine::Result<Counters> countAll(engine::Database& database) {
    const auto units = TRY(recordCount(database, "select disco from datos group by disco"));
    constexpr std::string_view foldersAndFiles[]{
        "select * from datos where  tipo =('Carpeta de archivos')  order by carpeta ",
        "select * from datos where  tipo =('archivo')  order by archivo ",
    };
    const auto counts = TRY(database.RecordCounts(foldersAndFiles));
    return Counters{.contadorunidades = units, .contadorcarpetas = counts[0], .contadorarchivos = counts[1]};
}

std::string statusText(const Counters& counters, Language language) {
    const Rotulos& captions = rotulos(language);
    return captions.rotuloprefijounidades + std::to_string(counters.contadorunidades) +
           captions.rotuloprefijocarpetas + std::to_string(counters.contadorcarpetas) +
           captions.rotuloprefijoarchivos + std::to_string(counters.contadorarchivos);
}

}  // namespace core
