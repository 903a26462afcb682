#include <QUtf8StringView>
#include <string>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/families.h"
#include "cli/operands.h"
#include "cli/output.h"
#include "notes/note_store.h"

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

    auto database = openCatalogue(operands[0], invocation.language,
                                  writes ? engine::Use::Catalogue : engine::Use::ReadOnly);
    if (!database) return UnusableCatalogue;
    engine::Transaction whole(*database);  // or the row could vanish between the look and the note
    if (const auto begun = writes ? whole.begin() : engine::Result<>(); !begun)
        return unusable(operands[0], begun.error(), invocation.language);
    const auto disco = unitOperand(*database, operands[1], invocation);
    if (!disco) return disco.error();
    const auto found = rowOperand(*database, *disco, operands[2], core::FoundRow::File, invocation);
    if (!found) return found.error();
    if (found->kind == core::FoundRow::Unit)
        return fail(NothingFound, operands[2], unitHasNone.in(invocation.language));
    if (!writes) return printNote(found->row, invocation);

    auto stored = notes::storeNoteOf(*database, found->row, operands[3]);
    if (stored) stored = whole.commit();
    if (stored) return Done;
    if (stored.error().number == engine::error::syntaxInExpression)
        return fail(WrongUsage, restricted.in(invocation.language));
    return unusable(operands[0], stored.error(), invocation.language);
}

constexpr Command noteTable[]{
    {"note",
     "CAT UNIT PATH [TEXT]",
     {"Muestra la nota de una fila, o la escribe. Un TEXT vacío la quita.",
      "Prints the note of a row, or writes it. An empty TEXT removes it."},
     {},
     runNote},
};

}  // namespace

std::span<const Command> noteCommands() {
    return noteTable;
}

}  // namespace cli
