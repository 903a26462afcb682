#include <algorithm>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/folder_operand.h"
#include "cli/interrupt.h"
#include "cli/operands.h"
#include "cli/output.h"
#include "cli/scan_progress.h"
#include "core/units.h"
#include "platform/files.h"
#include "scan/rescan.h"

namespace cli {
namespace {

constexpr core::Bilingual unreadKept{"no se puede leer; sus filas se conservan",
                                     "cannot be read; its rows are kept"};

constexpr core::Bilingual lostNote{"ya no está; su nota era: ", "is no longer there; its note was: "};

enum class Does { Compare, Update };

int tell(const scan::RescanFailure& failure, const Invocation& invocation) {
    using Kind = scan::RescanFailure::Kind;
    const auto& operands = invocation.arguments.operands;
    if (failure.kind == Kind::Catalogue) return unusable(operands[0], failure.error, invocation.language);
    const int status = fail(failure.kind == Kind::NotFound ? NothingFound : WrongUsage, operands[1],
                            failure.reason.in(invocation.language));
    return failure.kind == Kind::Stopped ? statusOfInterrupt() : status;
}

std::string_view wordOf(scan::UnitChanges::Kind kind) {
    switch (kind) {
        case scan::UnitChanges::Kind::Added:
            return "added";
        case scan::UnitChanges::Kind::Removed:
            return "removed";
        case scan::UnitChanges::Kind::Changed:
            return "changed";
    }
    return {};
}

std::string pathOf(const scan::UnitChanges& changes, const scan::UnitChanges::Change& change) {
    std::string path = changes.path(change);
    std::ranges::replace(path, '\\', '/');
    return path;
}

// Of what is no longer there; only here does it still stand then.
void tellLostNotes(const scan::UnitChanges& changes, core::Language language) {
    for (const scan::UnitChanges::Change& change : changes.lostNotes())
        fail(Done, pathOf(changes, change),
             std::string(lostNote.in(language)) + changes.row(change).comentario.value_or(""));
}

void printChanges(const scan::UnitChanges& changes, bool json, const platform::Drives& drives) {
    for (const scan::UnitChanges::Change& change : changes.changes()) {
        if (json) {
            JsonLine line;
            addRow(line.text("change", wordOf(change.kind)), changes.row(change), drives);
            print(line.take());
            continue;
        }
        print(std::string{static_cast<char>(change.kind), ' '} + shown(pathOf(changes, change)) + '\n');
    }
}

int readAgain(const Invocation& invocation, Does does) {
    const auto& operands = invocation.arguments.operands;
    scan::RescanRequest request{{}, {}, exclusionOf(invocation.arguments)};
    if (operands.size() > 2) {
        request.directory = resolved(operands[2]);
        if (!platform::FolderExists(request.directory))
            return fail(WrongUsage, operands[2], noFolder.in(invocation.language));
    }
    auto database = openCatalogue(operands[0], invocation.language,
                                  does == Does::Update ? engine::Use::Catalogue : engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    const auto disco = unitOperand(*database, operands[1], invocation);
    if (!disco) return disco.error();
    request.disco = *disco;

    const InterruptGuard interrupts;
    ScanProgress progress(invocation.language);
    const platform::Drives drives = platform::Drives::current();
    const auto changes = does == Does::Update
                             ? scan::updateUnit(*database, request, drives, progress, wasInterrupted)
                             : scan::compareUnit(*database, request, drives, progress);
    if (!changes) return tell(changes.error(), invocation);

    printChanges(*changes, invocation.arguments.json, drives);
    tellLostNotes(*changes, invocation.language);
    const std::vector<std::string> unread = progress.takeUnread();
    for (const std::string& folder : unread) fail(NothingFound, folder, unreadKept.in(invocation.language));
    progress.tellLeftOut();
    const bool differs = does == Does::Compare && !changes->changes().empty();
    return differs || !unread.empty() ? NothingFound : Done;
}

int runUpdate(const Invocation& invocation) {
    return readAgain(invocation, Does::Update);
}

int runCompare(const Invocation& invocation) {
    return readAgain(invocation, Does::Compare);
}

constexpr Command updateTable[]{
    {"update",
     "CAT UNIT [DIR]",
     {"Lee otra vez el medio de una unidad y la pone al día; las notas se conservan. Dice qué ha cambiado.",
      "Reads the medium of a unit again and brings the unit up to date, its notes kept. Tells what changed."},
     exclusionOptions,
     runUpdate},
    {"compare",
     "CAT UNIT [DIR]",
     {"Dice qué cambiaría update, y no cambia nada. Estado 1: algo difiere.",
      "Tells what update would change, and changes nothing. Status 1: something differs."},
     exclusionOptions,
     runCompare},
};

}  // namespace

std::span<const Command> updateCommands() {
    return updateTable;
}

}  // namespace cli
