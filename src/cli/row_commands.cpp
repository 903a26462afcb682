#include <QUtf8StringView>
#include <algorithm>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/output.h"
#include "copyback/locate.h"
#include "core/text.h"
#include "core/unit_kinds.h"
#include "notes/note_store.h"
#include "platform/files.h"

namespace cli {
namespace {

constexpr core::Bilingual notCatalogued{"no está en el catálogo", "is not in the catalogue"};
constexpr core::Bilingual isFolder{"es una carpeta", "is a folder"};
constexpr core::Bilingual noNote{"No existen notas en este item.", "There aren´t notes in this item."};
constexpr core::Bilingual restricted{"Ha introducido un caracter no permitido.",
                                     "Yo have inserted a restricted character."};
constexpr core::Bilingual notUtf8{"no es UTF-8", "is not UTF-8"};
constexpr core::Bilingual noFolder{"no es una carpeta", "is no folder"};

// A row by its unit and its path as listed, `ruta`\name. A file takes precedence over the row of a hand-made
// unit; folders are found only to be refused.
struct RowOperand {
    RowOperand(const std::string& unit, const std::string& path) {
        target.indicefila = 0;
        target.disco = core::withoutApostrophes(unit) + std::string(core::unitSuffix);
        const std::string stored = core::withoutApostrophes(path);
        target.name = core::lastComponent(stored);
        target.ruta = stored.substr(0, std::max(stored.rfind('\\') + 1, std::size_t{1}) - 1);
        if (target.ruta.ends_with(':')) target.ruta += '\\';  // the root of a drive
    }

    [[nodiscard]] core::CataloguedFile file() const {
        return {row.ruta, row.archivo.value_or(std::string())};
    }

    notes::NoteTarget target;
    core::CatalogRow row;
};

enum class Lookup { File, Unit, Folder, Missing };

// Fills in the row and what the note statements need to know of it.
engine::Result<Lookup> lookUp(engine::Database& database, RowOperand& operand) {
    for (const auto list : {notes::ListKind::Results, notes::ListKind::Browse}) {
        operand.target.list = list;
        const auto rows = database.OpenRecordset(notes::selectForStoring(operand.target));
        if (!rows) return std::unexpected(rows.error());
        if (rows->Eof()) continue;
        operand.row = core::readRow(*rows);
        operand.target.type = operand.row.tipo;
        if (list == notes::ListKind::Results) return Lookup::File;
        if (operand.row.tipo == core::folderTipo) return Lookup::Folder;
        return operand.row.archivo ? Lookup::Missing : Lookup::Unit;
    }
    return Lookup::Missing;
}

int failedLookup(Lookup lookup, const std::string& path, core::Language language) {
    return fail(NothingFound, path, (lookup == Lookup::Folder ? isFolder : notCatalogued).in(language));
}

int printNote(const RowOperand& operand, const Invocation& invocation) {
    const std::string note = operand.row.comentario.value_or(std::string());
    if (invocation.arguments.json)
        print(jsonRow(operand.row, platform::Drives::current()));
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
    RowOperand operand(operands[1], operands[2]);
    const auto found = lookUp(*database, operand);
    if (!found) return fail(UnusableCatalogue, operands[0], found.error().text);
    if (*found != Lookup::File && *found != Lookup::Unit)
        return failedLookup(*found, operands[2], invocation.language);
    if (!writes) return printNote(operand, invocation);

    const auto stored = notes::storeNote(*database, operand.target, operands[3]);
    if (stored) return Done;
    if (stored.error().number == engine::error::syntaxInExpression)
        return fail(WrongUsage, restricted.in(invocation.language));
    return fail(UnusableCatalogue, operands[0], stored.error().text);
}

// Copies one file; the status of what went wrong.
int copyBack(engine::Database& database, const platform::Drives& drives, const std::string& path,
             const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    RowOperand operand(operands[1], path);
    const auto found = lookUp(database, operand);
    if (!found) return fail(UnusableCatalogue, operands[0], found.error().text);
    if (*found != Lookup::File) return failedLookup(*found, path, invocation.language);

    const auto file = copyback::locate(drives, operand.file());
    if (!file) return fail(NothingFound, core::noSuchFile(path, invocation.language).text);
    const auto copied = platform::CopyFile(file->path, copyback::destinationIn(operands.back(), file->name));
    return copied ? Done : fail(NothingFound, copied.error().text);
}

int runCopy(const Invocation& invocation) {
    const auto& operands = invocation.arguments.operands;
    if (!platform::FolderExists(operands.back()))
        return fail(WrongUsage, operands.back(), noFolder.in(invocation.language));
    auto database = openCatalogue(operands[0], engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;

    const platform::Drives drives = platform::Drives::current();
    int worst = Done;
    for (std::size_t i = 2; i + 1 < operands.size(); ++i)
        worst = std::max(worst, copyBack(*database, drives, operands[i], invocation));
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
