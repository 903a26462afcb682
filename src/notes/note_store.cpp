#include "notes/note_store.h"

#include "core/literals.h"
#include "core/text.h"
#include "core/unit_kinds.h"

namespace notes {
namespace {

std::string withKey(std::string text, const NoteTarget& target, std::string_view nameColumn) {
    text.append("disco=('").append(target.disco).append("') and ruta =('").append(target.ruta);
    return text.append("') and ").append(nameColumn).append(" =('").append(target.name).append("')");
}

engine::Result<> refuseApostrophes(const NoteTarget& target) {
    for (const std::string_view part : {target.disco, target.ruta, target.name})
        TRY(core::refuseApostrophe(part));
    return {};
}

}  // namespace

std::string selectForReading(const NoteTarget& target) {
    std::string text = withKey("select * from datos where ", target, "archivo");
    return withKey(text + (target.list == ListKind::Browse ? " or " : "or "), target, "carpeta");
}

std::string selectForStoring(const NoteTarget& target) {
    if (target.list == ListKind::Browse) return selectForReading(target);
    return withKey("select * from datos where ", target, "archivo");
}

std::string updateNote(const NoteTarget& target, std::string_view note) {
    std::string text = "update datos set comentario='";
    text = withKey(text.append(note).append("' where "), target, "archivo");
    return target.list == ListKind::Browse ? withKey(text + " or ", target, "carpeta") : text;
}

engine::Result<> storeNoteOf(engine::Database& database, const core::CatalogRow& row, std::string_view note) {
    TRY(core::refuseApostrophe(note));
    const std::string where =
        " where disco=(" + core::literal(row.disco) + ") and ruta=(" + core::literal(row.ruta) + ") and " +
        (row.archivo ? "archivo=(" + core::literal(*row.archivo) + ")" : "tipo<>('archivo')");
    // Statements take no notice of case; the rows of this very spelling are told by their numbers.
    std::string numbers;
    {
        auto rows = TRY(database.OpenRecordset("select * from datos" + where));
        for (; !rows.Eof(); rows.MoveNext()) {
            const core::CatalogRow other = core::readRow(rows);
            if (other.disco != row.disco || other.ruta != row.ruta || other.archivo != row.archivo) continue;
            numbers.append(numbers.empty() ? "" : ",").append(std::to_string(other.numero));
        }
        if (rows.error()) return std::unexpected(*rows.error());
    }
    (void)TRY(database.Execute("update datos set comentario=" + core::literal(note) + where +
                               " and numero in (" + numbers + ")"));
    return {};
}

engine::Result<ReadNote> readNote(engine::Database& database, const NoteTarget& target,
                                  core::Language language) {
    if (target.indicefila < 0 || target.type == core::rotulos(language).rotulocarpeta) return ReadNote{};
    if (!refuseApostrophes(target)) return ReadNote{};
    const auto rows = TRY(database.OpenRecordset(selectForReading(target)));
    const bool none = rows.Eof();
    if (rows.error()) return std::unexpected(*rows.error());
    if (none) return ReadNote{};
    std::string note(rows.Field("comentario").text());
    const ReadEnd end = note.empty() ? ReadEnd::NoNote : ReadEnd::Note;
    return ReadNote{end, std::move(note)};
}

engine::Result<StoreEnd> storeNote(engine::Database& database, const NoteTarget& target,
                                   std::string_view note) {
    // The stored word in both languages: where folders are captioned "Files folder", this lets them pass.
    if (target.indicefila < 0 || target.type == core::folderTipo) return StoreEnd::NoRow;
    TRY(refuseApostrophes(target));
    {
        const auto rows = TRY(database.OpenRecordset(selectForStoring(target)));
        const bool none = rows.Eof();
        if (rows.error()) return std::unexpected(*rows.error());
        if (none) return StoreEnd::NotFound;
    }
    TRY(core::refuseApostrophe(note));
    (void)TRY(database.Execute(updateNote(target, note)));
    return StoreEnd::Stored;
}

}  // namespace notes
