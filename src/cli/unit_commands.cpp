#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/output.h"
#include "core/unit_kinds.h"
#include "core/units.h"

namespace cli {
namespace {

// What a unit is called: the kind's word for a hand-made one, for a scanned one the word that is never
// stored.
std::string kindOf(const core::Unit& unit, core::Language language) {
    if (unit.picture == core::scannedUnitPicture) return core::rotulos(language).rotulounidadcarpetas;
    for (const core::UnitKind& kind : core::unitKinds)
        if (kind.tipo == unit.tipo) return std::string(kind.caption.in(language));
    return unit.tipo;
}

std::string_view withoutSuffix(std::string_view disco) {
    if (disco.ends_with(core::unitSuffix)) disco.remove_suffix(core::unitSuffix.size());
    return disco;
}

void printUnit(const core::Unit& unit, const Invocation& invocation) {
    if (invocation.arguments.json) {
        print(JsonLine()
                  .text("disco", unit.disco)
                  .text("tipo", kindOf(unit, core::Language::Spanish))
                  .number("folders", unit.folders)
                  .number("files", unit.files)
                  .number("kb", unit.kilobytes)
                  .take());
        return;
    }
    print(std::string(withoutSuffix(unit.disco)) + '\t' + kindOf(unit, invocation.language) + '\t' +
          std::to_string(unit.folders) + '\t' + std::to_string(unit.files) + '\t' +
          std::to_string(unit.kilobytes) + '\n');
}

int runUnits(const Invocation& invocation) {
    const std::string& catalogue = invocation.arguments.operands[0];
    auto database = openCatalogue(catalogue, jet::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    const auto units = core::units(*database);
    if (!units) return fail(UnusableCatalogue, catalogue, units.error().text);
    for (const core::Unit& unit : *units) printUnit(unit, invocation);
    return units->empty() ? NothingFound : Done;
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
