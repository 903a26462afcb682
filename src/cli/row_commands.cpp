#include <QUtf8StringView>
#include <algorithm>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/operands.h"
#include "cli/output.h"
#include "copyback/locate.h"
#include "notes/note_store.h"
#include "platform/files.h"

namespace cli {
namespace {

constexpr core::Bilingual unitHasNone{"es la unidad, que no lleva notas", "is the unit, which bears no note"};
constexpr core::Bilingual noNote{"No existen notas en este item.", "There aren´t notes in this item."};
constexpr core::Bilingual restricted{"Ha introducido un caracter no permitido.",
                                     "Yo have inserted a restricted character."};
constexpr core::Bilingual notUtf8{"no es UTF-8", "is not UTF-8"};
int printNote(const core::CatalogRow& row, const Invocation& invocation) {
    const std::string note = row.comentario.value_or(std::string());
    if (invocation.arguments.json)
        print(jsonRow(row, platform::Drives::current()));
    else if (!note.empty())
        print(shownNote(note) + '\n');
    return note.empty() ? fail(NothingFound, noNote.in(invocation.language)) : Done;
}

int runNote(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    const bool writes = operands.size() > 3;
    if (writes && !QUtf8StringView(operands[3]).isValidUtf8())
        return fail(WrongUsage, operands[3], notUtf8.in(invocation.language));

    auto database = openCatalogue(operands[0], writes ? engine::Use::Catalogue : engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    const auto disco = unitOperand(*database, operands[1], invocation);
    if (!disco) return disco.error();
    const auto found = rowOperand(*database, *disco, operands[2], core::FoundRow::File, invocation);
    if (!found) return found.error();
    if (found->kind == core::FoundRow::Unit)
        return fail(NothingFound, operands[2], unitHasNone.in(invocation.language));
    if (!writes) return printNote(found->row, invocation);

    const auto stored = notes::storeNoteOf(*database, found->row, operands[3]);
    if (stored) return Done;
    if (stored.error().number == engine::error::syntaxInExpression)
        return fail(WrongUsage, restricted.in(invocation.language));
    return fail(UnusableCatalogue, operands[0], stored.error().text);
}

// Copies one file; the status of what went wrong.
int copyBack(engine::Database& database, const std::string& disco, const platform::Drives& drives,
             const std::string& path, const Invocation& invocation) {
    const auto found = rowOperand(database, disco, path, core::FoundRow::File, invocation);
    if (!found) return found.error();
    if (found->kind != core::FoundRow::File)
        return fail(NothingFound, path, isFolder.in(invocation.language));
    const auto file =
        copyback::locate(drives, {found->row.ruta, *found->row.archivo},
                         found->withApostrophes ? core::Spelling::Restored : core::Spelling::Stored);
    if (!file) return fail(NothingFound, core::noSuchFile(path, invocation.language).text);
    const auto copied = platform::CopyFile(
        file->path, copyback::destinationIn(invocation.arguments.operands.back(), file->name));
    return copied ? Done : fail(NothingFound, copied.error().text);
}

int runCopy(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    if (!platform::FolderExists(operands.back()))
        return fail(WrongUsage, operands.back(), isNoFolder.in(invocation.language));
    auto database = openCatalogue(operands[0], engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;

    const auto disco = unitOperand(*database, operands[1], invocation);
    if (!disco) return disco.error();

    const platform::Drives drives = platform::Drives::current();
    int worst = Done;
    for (std::size_t i = 2; i + 1 < operands.size(); ++i)
        worst = std::max(worst, copyBack(*database, *disco, drives, operands[i], invocation));
    return worst;
}

constexpr Command rowTable[]{
    {"note",
     "CAT UNIT PATH [TEXT]",
     {"Muestra la nota de una fila, o la escribe. Un TEXT vacío la quita.",
      "Prints the note of a row, or writes it. An empty TEXT removes it."},
     {},
     runNote},
    {"copy",
     "CAT UNIT PATH... DEST",
     {"Copia archivos de su medio a la carpeta DEST.", "Copies files from their medium to the folder DEST."},
     {},
     runCopy},
};

}  // namespace

std::span<const Command> rowCommands() {
    return rowTable;
}

}  // namespace cli
