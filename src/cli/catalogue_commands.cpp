#include <filesystem>
#include <string>
#include <system_error>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "core/catalogue_file.h"
#include "core/maintenance.h"

namespace cli {
namespace {

constexpr core::Bilingual keptAs{"el archivo dañado se conserva como ", "the damaged file is kept as "};
constexpr core::Bilingual alreadyThere{"ya existe y no se toca", "exists already and is left alone"};

// Unlike the window, where the file chooser asks first, a script must never lose a catalogue to `new`.
int runNew(const Invocation& invocation) {
    const std::string& path = invocation.arguments.operands[0];
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(path, ignored)))
        return fail(UnusableCatalogue, path, alreadyThere.in(invocation.language));
    if (const auto created = core::createCatalogue(path); !created)
        return fail(UnusableCatalogue, path, created.error().text);
    return Done;
}

// The file in between is made in the current directory: that of the catalogue is one where it surely fits.
int runCompact(const Invocation& invocation) {
    std::error_code ignored;
    const std::string path = std::filesystem::absolute(invocation.arguments.operands[0], ignored);
    std::filesystem::current_path(std::filesystem::path(path).parent_path(), ignored);
    if (const auto compacted = core::compactCatalogue(path); !compacted)
        return fail(UnusableCatalogue, path, compacted.error().text);
    return Done;
}

int runRepair(const Invocation& invocation) {
    const std::string& path = invocation.arguments.operands[0];
    const auto repaired = core::repairCatalogue(path);
    if (!repaired) return fail(UnusableCatalogue, path, repaired.error().text);
    if (repaired->empty()) return Done;
    return fail(Done, path, std::string(keptAs.in(invocation.language)) + *repaired);
}

constexpr Command catalogueTable[]{
    {"new", "CAT", {"Crea un catálogo vacío.", "Makes an empty catalogue."}, {}, runNew},
    {"compact", "CAT", {"Devuelve el espacio sin usar.", "Gives unused space back."}, {}, runCompact},
    {"repair", "CAT", {"Rehace un catálogo dañado.", "Rebuilds a damaged catalogue."}, {}, runRepair},
};

}  // namespace

std::span<const Command> catalogueCommands() {
    return catalogueTable;
}

}  // namespace cli
