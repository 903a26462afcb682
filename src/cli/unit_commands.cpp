#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/output.h"
#include "core/unit_kinds.h"

namespace cli {
namespace {

struct UnitTotals {
    std::string tipo;  // of the unit's first row
    std::int64_t folders = 0;
    std::int64_t files = 0;
    std::int64_t kilobytes = 0;
};
using Totals = std::map<std::string, UnitTotals, std::less<>>;

bool isScanned(const UnitTotals& unit) {
    return unit.tipo == core::folderTipo || unit.tipo == core::fileTipo;
}

// What a unit is called: the kind's word for a hand-made one, for a scanned one the word that is never
// stored.
std::string kindOf(const UnitTotals& unit, core::Language language) {
    if (isScanned(unit)) return core::rotulos(language).rotulounidadcarpetas;
    for (const core::UnitKind& kind : core::unitKinds)
        if (kind.tipo == unit.tipo) return std::string(kind.caption.in(language));
    return unit.tipo;
}

void count(UnitTotals& unit, const jet::Recordset& row) {
    const std::string_view tipo = row.Field("tipo").text();
    if (unit.tipo.empty()) unit.tipo = tipo;
    if (tipo == core::folderTipo) ++unit.folders;
    if (tipo == core::fileTipo) ++unit.files;
    unit.kilobytes += row.Field("largo").integer();
}

jet::Result<Totals> readTotals(jet::Database& database) {
    auto rows = database.OpenRecordset("select disco, tipo, largo from datos");
    if (!rows) return std::unexpected(rows.error());
    Totals totals;
    auto unit = totals.end();
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string_view disco = rows->Field("disco").text();
        if (unit == totals.end() || unit->first != disco) unit = totals.try_emplace(std::string(disco)).first;
        count(unit->second, *rows);
    }
    if (rows->error()) return std::unexpected(*rows->error());
    return totals;
}

jet::Result<std::vector<std::string>> readUnitNames(jet::Database& database) {
    auto rows = database.OpenRecordset("select disco from datos group by disco order by disco");
    if (!rows) return std::unexpected(rows.error());
    std::vector<std::string> names;
    for (; !rows->Eof(); rows->MoveNext()) names.emplace_back(rows->Field("disco").text());
    if (rows->error()) return std::unexpected(*rows->error());
    return names;
}

std::string_view withoutSuffix(std::string_view disco) {
    if (disco.ends_with(core::unitSuffix)) disco.remove_suffix(core::unitSuffix.size());
    return disco;
}

void printUnit(const std::string& disco, const UnitTotals& unit, const Invocation& invocation) {
    if (invocation.arguments.json) {
        print(JsonLine()
                  .text("disco", disco)
                  .text("tipo", kindOf(unit, core::Language::Spanish))
                  .number("folders", unit.folders)
                  .number("files", unit.files)
                  .number("kb", unit.kilobytes)
                  .take());
        return;
    }
    print(std::string(withoutSuffix(disco)) + '\t' + kindOf(unit, invocation.language) + '\t' +
          std::to_string(unit.folders) + '\t' + std::to_string(unit.files) + '\t' +
          std::to_string(unit.kilobytes) + '\n');
}

int runUnits(const Invocation& invocation) {
    const std::string& catalogue = invocation.arguments.operands[0];
    auto database = openCatalogue(catalogue, jet::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    const auto names = readUnitNames(*database);
    if (!names) return fail(UnusableCatalogue, catalogue, names.error().text);
    const auto totals = readTotals(*database);
    if (!totals) return fail(UnusableCatalogue, catalogue, totals.error().text);

    for (const std::string& disco : *names)
        if (const auto unit = totals->find(disco); unit != totals->end())
            printUnit(disco, unit->second, invocation);
    return names->empty() ? NothingFound : Done;
}

constexpr Command table[]{
    {"units",
     "CAT.zrq",
     {"Lista las unidades: nombre, tipo, carpetas, archivos y KB.",
      "Lists the units: name, kind, folders, files and KB."},
     1,
     1,
     {},
     runUnits},
};

}  // namespace

std::span<const Command> unitCommands() {
    return table;
}

}  // namespace cli
