#include <filesystem>
#include <string>
#include <system_error>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "core/catalogue_file.h"

namespace cli {
namespace {

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

constexpr Command table[]{
    {"new", "CAT.zrq", {"Crea un catálogo vacío.", "Makes an empty catalogue."}, 1, 1, {}, runNew},
};

}  // namespace

std::span<const Command> catalogueCommands() {
    return table;
}

}  // namespace cli
