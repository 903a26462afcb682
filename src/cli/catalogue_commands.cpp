#include <filesystem>
#include <string>
#include <system_error>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/output.h"
#include "core/catalogue_file.h"
#include "engine/database.h"
#include "engine/maintenance.h"

namespace cli {
namespace {

constexpr core::Bilingual keptAs{"el archivo dañado se conserva como ", "the damaged file is kept as "};
constexpr core::Bilingual soundRows{"en buen estado; filas: ", "sound; rows: "};
constexpr core::Bilingual isNoCatalogue{"existe y no es un catálogo; no se toca",
                                        "exists and is no catalogue; it is left alone"};
constexpr core::Bilingual alreadyThere{"ya existe y no se toca", "exists already and is left alone"};

// Unlike the window, where the file chooser asks first, a script must never lose a catalogue to `new`.
int runNew(const Invocation& invocation) {
    const std::string& path = invocation.arguments.operands[0];
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(path, ignored)))
        return fail(UnusableCatalogue, path, alreadyThere.in(invocation.language));
    if (const auto created = core::createCatalogue(path); !created)
        return unusable(path, created.error(), invocation.language);
    return Done;
}

// The file in between is made in the current directory: that of the catalogue is one where it surely fits.
int runCompact(const Invocation& invocation) {
    std::error_code ignored;
    const std::string path = std::filesystem::absolute(invocation.arguments.operands[0], ignored);
    std::filesystem::current_path(std::filesystem::path(path).parent_path(), ignored);
    if (const auto compacted = core::compactCatalogue(path); !compacted)
        return unusable(path, compacted.error(), invocation.language);
    return Done;
}

int runRepair(const Invocation& invocation) {
    const std::string& path = invocation.arguments.operands[0];
    const auto repaired = engine::RepairDatabase(path);
    if (!repaired) return unusable(path, repaired.error(), invocation.language);
    if (repaired->empty()) return Done;
    return fail(Done, path, std::string(keptAs.in(invocation.language)) + *repaired);
}

int runCheck(const Invocation& invocation) {
    const std::string& path = invocation.arguments.operands[0];
    const auto check = engine::CheckDatabase(path);
    if (!check) return unusable(path, check.error(), invocation.language);
    const bool isSound = check->faults.empty();
    if (invocation.arguments.json)
        print(JsonLine()
                  .boolean("sound", isSound)
                  .number("rows", check->rows)
                  .texts("faults", check->faults)
                  .take());
    else if (isSound)
        print(std::string(soundRows.in(invocation.language)) + std::to_string(check->rows) + '\n');
    for (const std::string& fault : check->faults) fail(UnusableCatalogue, path, fault);
    return isSound ? Done : UnusableCatalogue;
}

// A name that leads to something else than a catalogue is more likely mistyped than meant.
int runBackup(const Invocation& invocation) {
    const std::string& path = invocation.arguments.operands[0];
    std::filesystem::path copy = invocation.arguments.operands[1];
    std::error_code ignored;
    if (std::filesystem::is_directory(copy, ignored)) copy /= std::filesystem::path(path).filename();
    if (std::filesystem::exists(copy, ignored)) {
        const auto there = engine::OpenDatabase(copy, engine::Use::ReadOnly);
        if (!there && there.error().number == engine::error::unrecognizedFormat)
            return fail(UnusableCatalogue, copy.native(), isNoCatalogue.in(invocation.language));
    }
    if (const auto made = engine::CopyDatabase(path, copy); !made)
        return unusable(path, made.error(), invocation.language);
    return Done;
}

constexpr Command catalogueTable[]{
    {"new", "CAT", {"Crea un catálogo vacío.", "Makes an empty catalogue."}, {}, runNew},
    {"compact", "CAT", {"Devuelve el espacio sin usar.", "Gives unused space back."}, {}, runCompact},
    {"repair", "CAT", {"Rehace un catálogo dañado.", "Rebuilds a damaged catalogue."}, {}, runRepair},
    {"check",
     "CAT",
     {"Lee todas las páginas y filas. Estado 3 si algo está dañado, y dice qué.",
      "Reads every page and row. Status 3 if something is damaged, and tells what."},
     {},
     runCheck},
    {"backup",
     "CAT DEST",
     {"Copia el catálogo entero, también mientras otros escriben en él.",
      "Makes a whole copy of the catalogue, also while others write to it."},
     {},
     runBackup},
};

}  // namespace

std::span<const Command> catalogueCommands() {
    return catalogueTable;
}

}  // namespace cli
