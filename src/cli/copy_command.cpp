#include <algorithm>
#include <expected>
#include <iterator>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/interrupt.h"
#include "cli/operands.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "copyback/copies.h"

namespace cli {
namespace {

constexpr core::Bilingual notFound{"no se encuentra en ninguna unidad de disco", "is found in no drive"};
constexpr core::Bilingual handMade{"no es un archivo", "is no file"};

// What all the paths name, and the status of those that name nothing. The catalogue is not held open while
// files are copied.
struct Wanted {
    std::vector<copyback::CopyItem> items;
    int status = Done;
};
std::expected<Wanted, int> wantedItems(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    auto database = openCatalogue(operands[0], invocation.language, engine::Use::ReadOnly);
    if (!database) return std::unexpected(UnusableCatalogue);
    const auto disco = TRY(unitOperand(*database, operands[1], invocation));

    Wanted wanted;
    for (std::size_t i = 2; i + 1 < operands.size(); ++i) {
        const auto place = rowOperand(*database, disco, operands[i], core::FoundRow::File, invocation);
        if (!place) {
            wanted.status = std::max<int>(wanted.status, place.error());
            continue;
        }
        const bool isFile = place->kind == core::FoundRow::File;
        if (place->kind == core::FoundRow::Entry || (!isFile && !invocation.arguments.has("--recursive"))) {
            const core::Bilingual why = place->kind == core::FoundRow::Entry ? handMade : isFolder;
            wanted.status =
                std::max<int>(wanted.status, fail(NothingFound, operands[i], why.in(invocation.language)));
            continue;
        }
        auto items = copyback::itemsOf(*database, *place);
        if (!items) return std::unexpected(unusable(operands[0], items.error(), invocation.language));
        std::ranges::move(*items, std::back_inserter(wanted.items));
    }
    if (wanted.status > NothingFound) return std::unexpected(wanted.status);  // a name that could be several
    return wanted;
}

int runCopy(const Invocation& invocation) {
    const std::string& destination = invocation.arguments.operands.back();
    if (!platform::FolderExists(destination))
        return fail(WrongUsage, destination, isNoFolder.in(invocation.language));
    const auto wanted = wantedItems(invocation);
    if (!wanted) return wanted.error();

    copyback::Copies copies(platform::Drives::current(), destination,
                            invocation.arguments.has("--no-clobber") ? copyback::Copies::Existing::Leave
                                                                     : copyback::Copies::Existing::Replace);
    const InterruptGuard interrupts;
    std::vector<std::string> away;
    int status = wanted->status;
    std::size_t number = 0;
    for (const copyback::CopyItem& item : wanted->items) {
        if (wasInterrupted()) break;
        showProgress(std::to_string(++number) + "/" + std::to_string(wanted->items.size()));
        const auto end = copies.copy(item);
        if (end == copyback::Copies::End::NoMedium) away.push_back(core::drivePathOf(item.row));
        if (end == copyback::Copies::End::Failed) status = fail(NothingFound, copies.failure());
    }
    for (const std::string& path : away) status = fail(NothingFound, path, notFound.in(invocation.language));
    return wasInterrupted() ? interrupted(invocation.language) : status;
}

constexpr Option copyOptions[]{
    {"--recursive", "", {"carpetas con todo lo que contienen", "folders with all that is in them"}},
    {"--no-clobber", "", {"deja los archivos que ya existen", "leaves files alone that exist already"}},
};

constexpr Command copyTable[]{
    {"copy",
     "CAT UNIT PATH... DEST",
     {"Copia archivos de su medio a la carpeta DEST, y al final nombra los que no están.",
      "Copies files from their medium to the folder DEST, and names at the end those that are not there."},
     copyOptions,
     runCopy},
};

}  // namespace

std::span<const Command> copyCommands() {
    return copyTable;
}

}  // namespace cli
