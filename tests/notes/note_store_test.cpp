#include "notes/note_store.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/catalogue_fixture.h"

namespace {

using core::Language;
using notes::ListKind;
using notes::NoteTarget;
using notes::ReadEnd;
using notes::StoreEnd;

// A folder "Viajes" with a file that stands in two rows, and another one.
class NoteStore : public testing::Test {
  protected:
    NoteStore() {
        const auto file = [](const char* name) { return test::fileRow("Fotos :", "E:\\Viajes", name); };
        catalogue.add(
            {test::folderRow("Fotos :", "E:\\Viajes"), file("mapa.txt"), file("mapa.txt"), file("otro.txt")});
    }

    // The notes of all rows; nothing else may change.
    std::vector<std::string> notes() {
        std::vector<std::string> all;
        for (const core::CatalogRow& row : catalogue.rows()) {
            EXPECT_EQ(row.disco + row.ruta, "Fotos :E:\\Viajes");
            all.push_back(row.archivo.value_or(row.carpeta) + "=" + row.comentario.value_or("null"));
        }
        return all;
    }

    static NoteTarget file(const std::string& name, ListKind list = ListKind::Browse) {
        return {list, 0, "Fotos :", "E:\\Viajes", name, "archivo de texto"};
    }
    static NoteTarget folder(const std::string& caption, ListKind list = ListKind::Browse) {
        return {list, 0, "Fotos :", "E:\\Viajes", "Viajes", caption};
    }

    test::CatalogueFixture catalogue;
    engine::Database database = catalogue.open();
};

TEST_F(NoteStore, RowsThatAgreeInUnitPathAndNameShareTheirNote) {
    EXPECT_EQ(storeNote(database, file("mapa.txt"), "uno"), StoreEnd::Stored);
    EXPECT_EQ(notes(),
              (std::vector<std::string>{"Viajes=null", "mapa.txt=uno", "mapa.txt=uno", "otro.txt=null"}));
    const NoteTarget found = file("mapa.txt", ListKind::Results);
    const std::string longNote = std::string(65536, 'x') + "\n\"línea\" ; -- *?[#] %\r\nñ";
    EXPECT_EQ(storeNote(database, found, longNote), StoreEnd::Stored);
    EXPECT_EQ(readNote(database, found, Language::English)->note, longNote);

    NoteTarget unclicked = found;
    unclicked.indicefila = -1;
    EXPECT_EQ(storeNote(database, unclicked, "n"), StoreEnd::NoRow);
    EXPECT_EQ(readNote(database, unclicked, Language::English)->end, ReadEnd::NoRow);
    catalogue.add(test::fileRow("Fotos :", "E:\\Viajes", "Viajes"));
    EXPECT_EQ(storeNote(database, file("Viajes", ListKind::Results), "n"), StoreEnd::Stored);
    EXPECT_EQ(notes().front() + ' ' + notes().back(), "Viajes=null Viajes=n") << "the folder keeps its own";
}

TEST_F(NoteStore, FoldersAreGuardedByCaption) {
    // Writing tests the Spanish word in both languages, reading the language's own.
    EXPECT_EQ(storeNote(database, folder("Carpeta de archivos"), "n"), StoreEnd::NoRow);
    EXPECT_EQ(storeNote(database, folder("Files folder", ListKind::Results), "n"), StoreEnd::NotFound);
    EXPECT_EQ(storeNote(database, folder("Files folder"), "n"), StoreEnd::Stored);
    // The second alternative takes every row of that folder.
    EXPECT_EQ(notes(), (std::vector<std::string>{"Viajes=n", "mapa.txt=n", "mapa.txt=n", "otro.txt=n"}));

    EXPECT_EQ(readNote(database, folder("Files folder"), Language::English)->end, ReadEnd::NoRow);
    EXPECT_EQ(readNote(database, folder("Carpeta de archivos"), Language::English)->end, ReadEnd::Note);
}

TEST_F(NoteStore, AnApostropheIsASyntaxErrorAndChangesNothing) {
    const auto before = notes();
    for (const char* note :
         {"it's", "'", "''", "a', disco='x", "x' where numero>0 or 'a'='a", "x'--", "\\'", "’'"}) {
        for (const ListKind list : {ListKind::Browse, ListKind::Results}) {
            const auto stored = storeNote(database, file("mapa.txt", list), note);
            ASSERT_FALSE(stored) << note;
            EXPECT_EQ(stored.error().number, engine::error::syntaxInExpression) << note;
        }
    }
    // Nor can a catalogue's own names lead a note to other rows.
    NoteTarget oddPath = file("mapa.txt");
    oddPath.ruta = "E:\\Viajes') or ('1'='1";
    for (const NoteTarget& target : {file("x') or ('a'='a"), oddPath}) {
        EXPECT_FALSE(storeNote(database, target, "n"));
        EXPECT_EQ(readNote(database, target, Language::Spanish)->end, ReadEnd::NoRow);
    }
    EXPECT_EQ(notes(), before);
}

}  // namespace
