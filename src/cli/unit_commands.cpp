#include <algorithm>
#include <expected>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/operands.h"
#include "cli/output.h"
#include "core/maintenance.h"
#include "core/unit_kinds.h"
#include "core/unit_name.h"
#include "core/units.h"
#include "engine/text/folding.h"
#include "scan/refusal.h"
#include "scan/scan_request.h"

namespace cli {
namespace {

constexpr core::Bilingual differsInCase{"hay otra unidad cuyo nombre solo difiere en mayúsculas",
                                        "there is another unit whose name differs in case only"};
constexpr core::Bilingual nameTaken{"ya existe una unidad con ese nombre", "there is a unit with this name"};

// What a unit is called: the kind's word for a hand-made one, for a scanned one the word that is never
// stored.
std::string kindOf(const core::Unit& unit, core::Language language) {
    if (unit.picture == core::scannedUnitPicture) return core::rotulos(language).rotulounidadcarpetas;
    for (const core::UnitKind& kind : core::unitKinds)
        if (kind.tipo == unit.tipo) return std::string(kind.caption.in(language));
    return unit.tipo;
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
    print(shown(core::unitName(unit.disco)) + '\t' + shown(kindOf(unit, invocation.language)) + '\t' +
          std::to_string(unit.folders) + '\t' + std::to_string(unit.files) + '\t' +
          std::to_string(unit.kilobytes) + '\n');
}

int runUnits(const Invocation& invocation) {
    const std::string& catalogue = invocation.arguments.operands[0];
    auto database = openCatalogue(catalogue, invocation.language, engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    const auto units = core::units(*database);
    if (!units) return unusable(catalogue, units.error(), invocation.language);
    for (const core::Unit& unit : *units) printUnit(unit, invocation);
    return units->empty() ? NothingFound : Done;
}

// The unit that is to be changed. Statements take no notice of case, so that one whose name another bears in
// other letters cannot be changed alone.
std::expected<std::string, int> unitToChange(engine::Database& database, const Invocation& invocation) {
    const std::string& name = invocation.arguments.operands[1];
    auto disco = unitOperand(database, name, invocation);
    if (!disco) return disco;
    const auto all = core::unitNames(database);
    if (!all)
        return std::unexpected(unusable(invocation.arguments.operands[0], all.error(), invocation.language));
    if (std::ranges::count_if(*all, [&](const auto& other) { return engine::equalFolded(other, *disco); }) >
        1)
        return std::unexpected(fail(WrongUsage, name, differsInCase.in(invocation.language)));
    return disco;
}

// Unlike the window's label edit, whose test a mixed-case name slips through, no two units are ever merged.
int runRename(const Invocation& invocation) {
    const std::string& catalogue = invocation.arguments.operands[0];
    const std::string& newName = invocation.arguments.operands[2];
    if (newName.empty() || !canBeTyped(newName, scan::allowedInNames))
        return fail(WrongUsage, newName, notTypeable.in(invocation.language));
    auto database = openCatalogue(catalogue, invocation.language, engine::Use::Catalogue);
    if (!database) return UnusableCatalogue;
    engine::Transaction whole(*database);  // or another program's new unit could be merged with this one
    if (const auto begun = whole.begin(); !begun)
        return unusable(catalogue, begun.error(), invocation.language);
    const auto disco = unitToChange(*database, invocation);
    if (!disco) return disco.error();
    const bool sameUnit = engine::equalFolded(newName, core::unitName(*disco));
    const auto taken = scan::unitExists(*database, newName);
    if (!taken) return unusable(catalogue, taken.error(), invocation.language);
    if (!sameUnit && *taken) return fail(WrongUsage, newName, nameTaken.in(invocation.language));
    if (const auto renamed = core::renameUnit(*database, *disco, newName); !renamed)
        return unusable(catalogue, renamed.error(), invocation.language);
    if (const auto kept = whole.commit(); !kept)
        return unusable(catalogue, kept.error(), invocation.language);
    return Done;
}

int runDelete(const Invocation& invocation) {
    const std::string& catalogue = invocation.arguments.operands[0];
    auto database = openCatalogue(catalogue, invocation.language, engine::Use::Catalogue);
    if (!database) return UnusableCatalogue;
    engine::Transaction whole(*database);  // or another program's rename could leave nothing to delete
    if (const auto begun = whole.begin(); !begun)
        return unusable(catalogue, begun.error(), invocation.language);
    const auto disco = unitToChange(*database, invocation);
    if (!disco) return disco.error();
    if (const auto deleted = core::deleteUnit(*database, *disco); !deleted)
        return unusable(catalogue, deleted.error(), invocation.language);
    if (const auto kept = whole.commit(); !kept)
        return unusable(catalogue, kept.error(), invocation.language);
    return Done;
}

constexpr Command unitTable[]{
    {"units",
     "CAT",
     {"Lista las unidades: nombre, tipo, carpetas, archivos y KB.",
      "Lists the units: name, kind, folders, files and KB."},
     {},
     runUnits},
    {"rename", "CAT UNIT NEW", {"Cambia el nombre de una unidad.", "Renames a unit."}, {}, runRename},
    {"delete",
     "CAT UNIT",
     {"Elimina una unidad, sin preguntar.", "Deletes a unit without asking."},
     {},
     runDelete},
};

}  // namespace

std::span<const Command> unitCommands() {
    return unitTable;
}

}  // namespace cli
