#include <expected>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/output.h"
#include "core/maintenance.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "core/units.h"
#include "scan/allowed_keys.h"
#include "scan/scan_request.h"

namespace cli {
namespace {

constexpr core::Bilingual noUnit{"no existe esa unidad", "there is no such unit"};
constexpr core::Bilingual nameTaken{"ya existe una unidad con ese nombre", "there is a unit with this name"};

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
    print(shown(withoutSuffix(unit.disco)) + '\t' + shown(kindOf(unit, invocation.language)) + '\t' +
          std::to_string(unit.folders) + '\t' + std::to_string(unit.files) + '\t' +
          std::to_string(unit.kilobytes) + '\n');
}

int runUnits(const Invocation& invocation) {
    const std::string& catalogue = invocation.arguments.operands[0];
    auto database = openCatalogue(catalogue, engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    const auto units = core::units(*database);
    if (!units) return fail(UnusableCatalogue, catalogue, units.error().text);
    for (const core::Unit& unit : *units) printUnit(unit, invocation);
    return units->empty() ? NothingFound : Done;
}

// The `disco` of the unit that an operand names; says so and gives the exit status when there is none.
std::expected<std::string, int> findUnit(engine::Database& database, const Invocation& invocation) {
    const std::string& name = invocation.arguments.operands[1];
    std::string disco = name + std::string(core::unitSuffix);
    const auto tipo = core::unitTipo(database, disco);
    const bool unreadable = !tipo && tipo.error().number != engine::error::syntaxInExpression;
    if (unreadable)
        return std::unexpected(fail(UnusableCatalogue, invocation.arguments.operands[0], tipo.error().text));
    if (!tipo || tipo->empty())
        return std::unexpected(fail(NothingFound, name, noUnit.in(invocation.language)));
    return disco;
}

// Unlike the window's label edit, whose test a mixed-case name slips through, no two units are ever merged.
int runRename(const Invocation& invocation) {
    const std::string& catalogue = invocation.arguments.operands[0];
    const std::string& newName = invocation.arguments.operands[2];
    if (newName.empty() || !canBeTyped(newName, scan::allowedInNames))
        return fail(WrongUsage, newName, notTypeable.in(invocation.language));
    auto database = openCatalogue(catalogue, engine::Use::Catalogue);
    if (!database) return UnusableCatalogue;
    const auto disco = findUnit(*database, invocation);
    if (!disco) return disco.error();
    const bool sameUnit = core::lowerCase(newName) == core::lowerCase(invocation.arguments.operands[1]);
    if (!sameUnit && scan::unitExists(*database, newName))
        return fail(WrongUsage, newName, nameTaken.in(invocation.language));
    if (const auto renamed = core::renameUnit(*database, *disco, newName); !renamed)
        return fail(UnusableCatalogue, catalogue, renamed.error().text);
    return Done;
}

int runDelete(const Invocation& invocation) {
    const std::string& catalogue = invocation.arguments.operands[0];
    auto database = openCatalogue(catalogue, engine::Use::Catalogue);
    if (!database) return UnusableCatalogue;
    const auto disco = findUnit(*database, invocation);
    if (!disco) return disco.error();
    if (const auto deleted = core::deleteUnit(*database, *disco); !deleted)
        return fail(UnusableCatalogue, catalogue, deleted.error().text);
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
