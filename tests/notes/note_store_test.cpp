#include "notes/note_store.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/inserts.h"
#include "core/unit_kinds.h"
#include "platform/jet/maintenance.h"
#include "support/temporary_folder.h"

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
        const std::string path = m_folder / "notes.zrq";
        EXPECT_TRUE(jet::CreateDatabase(path));
        m_database.emplace(*jet::OpenDatabase(path));
        insertRow(std::nullopt, 0);
        insertRow("mapa.txt", 1);
        insertRow("mapa.txt", 2);
        insertRow("otro.txt", 3);
    }

    void insertRow(std::optional<std::string> archivo, int largo) {
        core::CatalogRow row;
        row.ruta = "E:\\Viajes";
        row.carpeta = "Viajes";
        row.archivo = std::move(archivo);
        row.nivel = "1";
        row.largo = largo;
        row.tipo = row.archivo ? core::fileTipo : core::folderTipo;
        row.disco = "Fotos :";
        EXPECT_TRUE(m_database->Execute(row.archivo ? core::insertFile(row) : core::insertFolder(row)));
    }

    jet::Database& database() { return *m_database; }

    // All rows in every column, to see that nothing else has changed.
    std::vector<std::string> notes() {
        std::vector<std::string> all;
        auto rows = database().OpenRecordset("select * from datos order by largo");
        for (; rows && !rows->Eof(); rows->MoveNext()) {
            const auto row = core::readRow(*rows);
            EXPECT_EQ(row.disco + row.ruta + row.nivel, "Fotos :E:\\Viajes1");
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

  private:
    test::TemporaryFolder m_folder;
    std::optional<jet::Database> m_database;
};

TEST_F(NoteStore, StatementsDifferBetweenTheLists) {
    const NoteTarget one{ListKind::Browse, 0, "U", "R", "N", ""};
    const NoteTarget two{ListKind::Results, 0, "U", "R", "N", ""};
    const std::string browse =
        "select * from datos where disco=('U') and ruta =('R') and archivo =('N') or disco=('U') and ruta "
        "=('R') "
        "and carpeta =('N')";
    EXPECT_EQ(selectForReading(one), browse);
    EXPECT_EQ(selectForStoring(one), browse);
    EXPECT_EQ(
        selectForReading(two),
        "select * from datos where disco=('U') and ruta =('R') and archivo =('N')or disco=('U') and ruta "
        "=('R') and carpeta =('N')");
    EXPECT_EQ(selectForStoring(two),
              "select * from datos where disco=('U') and ruta =('R') and archivo =('N')");
    EXPECT_EQ(updateNote(one, "T"),
              "update datos set comentario='T' where disco=('U') and ruta =('R') and archivo =('N') or "
              "disco=('U') and ruta =('R') and carpeta =('N')");
    EXPECT_EQ(updateNote(two, "T"),
              "update datos set comentario='T' where disco=('U') and ruta =('R') and archivo =('N')");
}

TEST_F(NoteStore, ANoteIsWrittenReadReplacedAndRemoved) {
    const NoteTarget target = file("mapa.txt");
    EXPECT_EQ(readNote(database(), target, Language::Spanish).end, ReadEnd::NoNote);
    EXPECT_EQ(storeNote(database(), target, "uno"), StoreEnd::Stored);
    // Rows that agree in unit, path and name share their note.
    EXPECT_EQ(notes(),
              (std::vector<std::string>{"Viajes=null", "mapa.txt=uno", "mapa.txt=uno", "otro.txt=null"}));

    const std::string longNote = std::string(65536, 'x') + "\n\"línea\" ; -- *?[#] %\r\nñ";
    EXPECT_EQ(storeNote(database(), file("mapa.txt", ListKind::Results), longNote), StoreEnd::Stored);
    const auto read = readNote(database(), file("mapa.txt", ListKind::Results), Language::English);
    EXPECT_EQ(read.end, ReadEnd::Note);
    EXPECT_EQ(read.note, longNote);

    EXPECT_EQ(storeNote(database(), target, ""), StoreEnd::Stored);
    EXPECT_EQ(readNote(database(), target, Language::Spanish).end, ReadEnd::NoNote);
}

TEST_F(NoteStore, FoldersAreGuardedByCaption) {
    // Writing tests the Spanish word in both languages, reading the language's own.
    EXPECT_EQ(storeNote(database(), folder("Carpeta de archivos"), "n"), StoreEnd::NoRow);
    EXPECT_EQ(storeNote(database(), folder("Files folder", ListKind::Results), "n"), StoreEnd::NoRow);
    EXPECT_EQ(storeNote(database(), folder("Files folder"), "n"), StoreEnd::Stored);
    // The second alternative takes every row of that folder.
    EXPECT_EQ(notes(), (std::vector<std::string>{"Viajes=n", "mapa.txt=n", "mapa.txt=n", "otro.txt=n"}));

    EXPECT_EQ(readNote(database(), folder("Files folder"), Language::English).end, ReadEnd::NoRow);
    EXPECT_EQ(readNote(database(), folder("Carpeta de archivos"), Language::Spanish).end, ReadEnd::NoRow);
    EXPECT_EQ(readNote(database(), folder("Carpeta de archivos"), Language::English).end, ReadEnd::Note);
}

TEST_F(NoteStore, NothingClickedOrNoSuchRowDoesNothing) {
    NoteTarget target = file("mapa.txt");
    target.indicefila = -1;
    EXPECT_EQ(storeNote(database(), target, "n"), StoreEnd::NoRow);
    EXPECT_EQ(readNote(database(), target, Language::Spanish).end, ReadEnd::NoRow);
    // Without a row the apostrophe is never noticed.
    EXPECT_EQ(storeNote(database(), file("gone"), "it's"), StoreEnd::NoRow);
    EXPECT_EQ(readNote(database(), file("gone"), Language::Spanish).end, ReadEnd::NoRow);
}

TEST_F(NoteStore, AnApostropheIsASyntaxErrorAndChangesNothing) {
    const auto before = notes();
    for (const char* note :
         {"it's", "'", "''", "a', disco='x", "x' where numero>0 or 'a'='a", "x'--", "\\'", "’'"}) {
        for (const ListKind list : {ListKind::Browse, ListKind::Results}) {
            const auto stored = storeNote(database(), file("mapa.txt", list), note);
            ASSERT_FALSE(stored) << note;
            EXPECT_EQ(stored.error().number, jet::error::syntaxInExpression) << note;
        }
    }
    // Nor can a catalogue's own names lead a note to other rows.
    for (NoteTarget target : {file("x') or ('a'='a"), file("mapa.txt")}) {
        if (target.name == "mapa.txt") target.ruta = "E:\\Viajes') or ('1'='1";
        EXPECT_FALSE(storeNote(database(), target, "n"));
        EXPECT_EQ(readNote(database(), target, Language::Spanish).end, ReadEnd::NoRow);
    }
    EXPECT_EQ(notes(), before);
}

}  // namespace
