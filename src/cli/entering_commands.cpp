#include <algorithm>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/folder_operand.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/scan_progress.h"
#include "core/unit_kinds.h"
#include "core/unit_name.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "scan/manual_unit.h"
#include "scan/refusal.h"
#include "scan/row_writer.h"
#include "scan/scan_request.h"

namespace cli {
namespace {

constexpr core::Bilingual unreadableFolder{"no se puede leer", "cannot be read"};
constexpr core::Bilingual unknownKind{"--kind es mixed, audio, video, programs o games",
                                      "--kind is mixed, audio, video, programs or games"};

constexpr core::Bilingual rowsLost{" filas perdidas", " rows lost"};

// In the order of core::unitKinds.
constexpr std::string_view kindNames[]{"mixed", "audio", "video", "programs", "games"};

int report(const scan::WalkResult& result, const scan::ScanRequest& request, const std::string& catalogue,
           const Invocation& invocation) {
    if (result.writes.nameTaken)
        return fail(WrongUsage, scan::refusal::scanNameTaken.text.in(invocation.language));
    if (invocation.arguments.json)
        print(JsonLine()
                  .text("disco", core::discoOf(request.name))
                  .number("folders", result.counts.folders)
                  .number("files", result.counts.files)
                  .boolean("stopped", result.stopped)
                  .take());
    if (!result.readable)
        return fail(WrongUsage, request.directory, unreadableFolder.in(invocation.language));
    if (auto failed = result.writes.firstError) {
        failed->text += "; " + std::to_string(result.writes.lost);
        failed->text += rowsLost.in(invocation.language);
        return unusable(catalogue, *failed, invocation.language);
    }
    if (result.stopped) return interrupted(invocation.language);
    if (result.counts.folders + result.counts.files == 0)  // and no unit, since a unit is its rows
        return fail(NothingFound, request.directory, scan::nothingThere.in(invocation.language));
    return Done;
}

int runScan(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    const std::string& catalogue = operands[0];
    const scan::ScanRequest request{operands[1], operands[2].empty() ? std::string() : resolved(operands[2]),
                                    exclusionOf(invocation.arguments)};

    if (!canBeTyped(request.name, scan::allowedInNames))
        return fail(WrongUsage, request.name, notTypeable.in(invocation.language));
    if (!request.directory.empty() && !platform::FolderExists(request.directory))
        return fail(WrongUsage, request.directory, noFolder.in(invocation.language));

    auto database = openCatalogue(catalogue, invocation.language, engine::Use::Catalogue);
    if (!database) return UnusableCatalogue;
    const auto refusal = scan::refusalOf(request, *database);
    if (!refusal) return unusable(catalogue, refusal.error(), invocation.language);
    if (*refusal) return fail(WrongUsage, (*refusal)->text.in(invocation.language));

    if (const auto writable = scan::canWrite(*database); !writable)
        return unusable(catalogue, writable.error(), invocation.language);
    const auto start = scan::walkStart(request, *database, platform::Drives::current());
    if (!start) return unusable(catalogue, start.error(), invocation.language);
    if (start->drivePath.empty())
        return fail(WrongUsage, request.directory, scan::inNoDrive.in(invocation.language));
    const InterruptGuard interrupts;
    ScanProgress progress(invocation.language);
    scan::RowWriter rows(*database, request.name);
    const scan::WalkResult result = scan::Walker(rows, progress, *start).run();
    progress.finish(result.counts);
    if (result.readable) progress.tellLeftOut();
    return report(result, request, catalogue, invocation);
}

int runAdd(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    const auto kind = std::ranges::find(kindNames, invocation.arguments.value("--kind").value_or("mixed"));
    if (kind == std::end(kindNames)) return fail(WrongUsage, unknownKind.in(invocation.language));

    const scan::ManualUnit unit{operands[1], operands[2], static_cast<int>(kind - std::begin(kindNames)) + 1};
    for (const std::string& typed : {unit.name, unit.content})
        if (!canBeTyped(typed, scan::allowedInNames))
            return fail(WrongUsage, typed, notTypeable.in(invocation.language));

    auto database = openCatalogue(operands[0], invocation.language, engine::Use::Catalogue);
    if (!database) return UnusableCatalogue;
    std::string tipo;
    const auto refusal = scan::addManualUnit(unit, tipo, *database);
    if (!refusal) return unusable(operands[0], refusal.error(), invocation.language);
    if (*refusal) return fail(WrongUsage, (*refusal)->text.in(invocation.language));
    return Done;
}

constexpr Option addOptions[]{
    {"--kind", "mixed|audio|video|programs|games", {"de qué es la unidad", "what the unit is of"}}};

constexpr Command enteringTable[]{
    {"scan",
     "CAT NAME DIR",
     {"Cataloga la carpeta DIR como unidad NAME. Ctrl-C conserva lo ya catalogado.",
      "Catalogues the folder DIR as the unit NAME. Ctrl-C keeps what is in."},
     exclusionOptions,
     runScan},
    {"add", "CAT NAME CONTENT", {"Añade una unidad a mano.", "Adds a unit by hand."}, addOptions, runAdd},
};

}  // namespace

std::span<const Command> enteringCommands() {
    return enteringTable;
}

}  // namespace cli
