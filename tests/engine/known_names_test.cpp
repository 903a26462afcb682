#include "engine/rows/known_names.h"

#include <random>

#include "catalogue_fixture.h"
#include "engine/dialect/query.h"
#include "engine/file/read_transaction.h"
#include "engine/search_memory.h"
#include "support/parts.h"

namespace {

// Searches with a memory beside searches without one.
class KnownNamesTest : public CatalogueTest {
  protected:
    // The rows' `numero`, in the order of the answer.
    std::string search(const std::string& sql, engine::SearchMemory* with = nullptr) {
        auto database = open(engine::Use::ReadOnly);
        if (with) database.SearchWith(*with);
        return column(database, "numero", sql);
    }

    // Changes the file as another program does.
    void change(const std::string& sql) { EXPECT_EQ(plainly(path, sql.c_str()), "") << sql; }

    // 20,000 files, of which "rare 1" and so on are a few.
    void fill() {
        change(
            "with recursive n(i) as (select 1 union all select i + 1 from n where i < 20000) insert into "
            "datos "
            "(numero, ruta, carpeta, archivo, nivel, tipo, disco) select i, 'E:\\a', 'a', "
            "iif(i % 4000 = 0, 'rare ', 'file ') || i, '2', 'Archivo', 'U :' from n");
    }

    engine::SearchMemory memory;
    const std::string rare = "select * from datos where archivo  Like ('*RARE*') order by archivo";
};

TEST_F(KnownNamesTest, AnswerAsAPassDoes) {
    const auto names = test::parts(
        "rare|Rare name.jpg|RARE NAME.JPG|raré|ñandú RARE|\u212Aelvin|kelvin|\u017Fong|song|a\xff\xfe|\xc3||"
        "[a]|a#1?|x*y|rar|e rare|Ελλάδα|ελλάδα.mp3|😀 rare");
    const auto kinds = test::parts("Archivo|archivo|ARCHIVO|Carpeta de archivos|Unidad de audio");
    std::mt19937 random(7);
    const auto one = [&](const auto& of) { return of[random() % of.size()]; };
    {
        auto database = open();
        engine::Transaction all(database);
        ASSERT_TRUE(all.begin());
        for (int i = 0; i < 400; ++i)
            run(database,
                "insert into datos (numero,ruta,carpeta,archivo,nivel,tipo,disco,comentario) values (" +
                    std::to_string(i) + ",'E:\\r','" + one(names) + "','" + one(names) + "','1','" +
                    one(kinds) + "','U :','" + one(names) + "')");
        ASSERT_TRUE(all.commit());
    }
    change("update datos set archivo = null where numero % 7 = 0");
    change("update datos set tipo = null where numero % 11 = 0");
    change(
        "update datos set tipo = cast('Archivo' as blob), archivo = x'00' || 'rare' where numero % 13 = 0");
    change("update datos set carpeta = 'ra' || char(0) || 're', comentario = 17 where numero % 17 = 0");
    change("update datos set rowid = -numero * 10000000000 where numero % 3 = 0");

    const auto tests = test::parts(
        "carpeta  Like ('*%*') and tipo <>('archivo') order by carpeta|"
        "carpeta  Like ('*%*') order by carpeta|"
        "archivo  Like ('*%*') order by archivo|archivo  Like ('%') order by archivo desc|"
        "archivo not like ('*%*') order by numero|"
        "archivo like ('*%*') and comentario  Like ('*rar*') order by archivo|"
        "comentario  Like ('*%*') and largo is null order by numero|"
        "(archivo like ('*%*.jpg')) or (archivo like ('*%*.mp3') and disco = ('u :')) order by numero|"
        "(archivo like ('*%*')) or (numero > 1000) order by numero|"
        "carpeta like ('*%*') and (tipo <>('archivo') or numero = 5) order by carpeta");
    for (const std::string& word :
         test::parts("rare|raré|K|ſ|s|song|\xff|\xc3|r?re|[qr]are|ra*re|e*r|#|[||ΛΛ|17|not there|*|?|.jpg|"
                     "are\\nam|ñandú r"))
        for (const std::string& sql : tests) {
            std::string asked = "select * from datos where " + sql;
            for (auto at = asked.find('%'); at != asked.npos; at = asked.find('%', at + word.size()))
                asked.replace(at, 1, word);
            const std::string expected = search(asked);
            for (int i = 0; i < 3; ++i) ASSERT_EQ(search(asked, &memory), expected) << asked;
        }
}

// Rows that others enter, change, take away and put in place of all are there in the next answer.
TEST_F(KnownNamesTest, OutliveNoChangeOfTheFile) {
    fill();
    const std::string copy = folder / "copy.zrq";
    std::filesystem::copy_file(path, copy);
    const auto expectAsWithout = [&](const char* after) {
        const std::string expected = search(rare);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(search(rare, &memory), expected) << after;
    };
    expectAsWithout("filling");
    for (const char* sql :
         {"update datos set archivo = 'rarely' where numero = 77", "delete from datos where numero = 8000",
          "insert into datos (numero, archivo) values (30000, 'rare too')", "vacuum",
          "update datos set numero = -numero where archivo like 'rare %'"}) {
        change(sql);
        expectAsWithout(sql);
    }
    EXPECT_EQ(plainly(path, "pragma journal_mode = wal"), "wal");
    expectAsWithout("keeping changes beside the file");
    EXPECT_EQ(plainly(path, "pragma journal_mode = delete"), "delete");
    expectAsWithout("back");
    std::filesystem::rename(copy, path);
    expectAsWithout("replacing the file");

    // The copy is as the file was at first. A change of its own within a transaction.
    auto database = open();
    database.SearchWith(memory);
    ASSERT_TRUE(database.BeginTrans());
    run(database, "update datos set archivo='rare anew' where numero=5");
    EXPECT_EQ(column(database, "numero", rare), "12000 16000 20000 4000 8000 5");
    database.Rollback();
    database.Close();
    expectAsWithout("undoing");
}

// The engine's own words for it: whether it knows the rows, in the first search and later.
TEST_F(KnownNamesTest, AreReadFromTheSecondSearchOn) {
    fill();
    engine::KnownNames names;
    const auto connection = engine::Connection::open(path, engine::Use::ReadOnly).value();
    engine::StatementReader reader;
    const auto known = [&](const std::string& sql) -> long long {
        const auto statement = reader.read(sql).value();
        const auto locked = engine::ReadTransaction::begin(*connection);
        const auto found = names.rowsFor(*connection, *statement->where, reader.literals());
        return found ? static_cast<long long>(found->size()) : -1;
    };
    names.beginSearch();
    EXPECT_EQ(known(rare), -1);
    EXPECT_EQ(known(rare), -1) << "another statement of the same search";
    names.beginSearch();
    EXPECT_EQ(known(rare), 5);
    EXPECT_EQ(known("select * from datos where archivo like ('*file*') order by archivo"), -1) << "too many";
    EXPECT_EQ(known("select * from datos where carpeta like ('*a*') and tipo <>('archivo') order by carpeta"),
              0);
    EXPECT_EQ(known("select * from datos where ruta like ('*rare*') order by ruta"), -1);
    change("delete from datos where numero = 1");
    EXPECT_EQ(known(rare), -1);

    // Read ahead, share by share, until the file changes.
    names.beginSearch();
    int shares = 1;
    while (names.readOn(*connection, 3000)) ++shares;
    EXPECT_EQ(shares, 7);
    EXPECT_EQ(known(rare), 5);
    change("delete from datos where numero = 4000");
    EXPECT_FALSE(names.readOn(*connection, 3000));
    EXPECT_EQ(known(rare), -1);
}

// A table whose rows stand out of order, which a pass finds and a look-up does not.
TEST_F(KnownNamesTest, AreNotTakenFromADamagedTable) {
    fill();
    std::string bytes = test::readFile(path);
    const auto at = bytes.find("rare 80002Archivo");
    ASSERT_NE(at, bytes.npos);
    // The two bytes of the row's number stand before the header of its record.
    const auto number = bytes.rfind("\xBE\x40", at);  // 8000
    ASSERT_LT(at - number, 60U);
    test::writeFile(path, bytes.replace(number, 2, "\x81\x01"));  // 129
    const std::string expected = search(rare);
    EXPECT_NE(expected.find("8000"), expected.npos);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(search(rare, &memory), expected);
}

}  // namespace
