#pragma once

#include <string>
#include <string_view>

#include "core/catalog_row.h"
#include "core/language.h"
#include "engine/database.h"

namespace notes {

// Reading and writing the note of the row that was clicked last.

enum class ListKind { Browse, Results };  // ListView1, ListView2

// The clicked row. A row is found by these three texts alone: rows that agree in them share their note.
struct NoteTarget {
    ListKind list = ListKind::Browse;
    int indicefila = -1;  // below zero: no row was clicked
    std::string disco;
    std::string ruta;
    std::string name;  // of a file or folder
    std::string type;  // as displayed
};

// The statements differ between the lists in a blank, and for storing in the folder alternative.
[[nodiscard]] std::string selectForReading(const NoteTarget& target);
[[nodiscard]] std::string selectForStoring(const NoteTarget& target);
[[nodiscard]] std::string updateNote(const NoteTarget& target, std::string_view note);

enum class ReadEnd { NoRow, NoNote, Note };
struct ReadNote {
    ReadEnd end = ReadEnd::NoRow;
    std::string note;
};

// NoRow too for a folder, and when no row was clicked.
[[nodiscard]] engine::Result<ReadNote> readNote(engine::Database& database, const NoteTarget& target,
                                                core::Language language);

enum class StoreEnd {
    Stored,
    NoRow,     // none was clicked, or a folder's, which is left alone
    NotFound,  // the catalogue has it no more, or not among what can be stored from that list
};

// Replaces the whole note; the empty text removes it. A note that would end its own literal is refused as the
// engine refuses it, with engine::error::syntaxInExpression, and nothing is executed.
[[nodiscard]] engine::Result<StoreEnd> storeNote(engine::Database& database, const NoteTarget& target,
                                                 std::string_view note);

// Replaces the note of one row, be it a file's, a folder's or a hand-made unit's, and of the rows that agree
// with it to the byte in unit, path and name.
[[nodiscard]] engine::Result<> storeNoteOf(engine::Database& database, const core::CatalogRow& row,
                                           std::string_view note);

}  // namespace notes
