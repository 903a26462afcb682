#include "catalogue_fixture.h"
#include "support/parts.h"

namespace {

using DialectTest = CatalogueTest;

TEST_F(DialectTest, ConvertsQuotedTextToTheColumnsType) {
    auto db = open();
    run(db, "insert into datos (numero,fecha,largo,nivel,disco) values ('12','38000,75','1536','03','U :')");
    run(db, "insert into datos (numero,fecha,largo,disco) values (-3,'soon','much','U :')");
    EXPECT_EQ(column(db, "numero", "select numero from datos order by numero"), "-3 12");
    auto rows = db.OpenRecordset("select * from datos where fecha between(38000.7)and (38000.8)");
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->Field("fecha").number(), 38000.75);
    EXPECT_EQ(rows->Field("LARGO").integer(), 1536);
    EXPECT_EQ(rows->Field("nivel").text(), "03");
    EXPECT_TRUE(rows->Field("comentario").isNull());
    EXPECT_TRUE(rows->Field("no such").isNull());
    EXPECT_EQ(count(db, "select * from datos where fecha is null and largo is null"), 1);
    EXPECT_EQ(count(db, "select * from datos where largo > (1535) and disco=('U :')"), 1);
}

TEST_F(DialectTest, ComparesTextWithoutCaseAndNeverNull) {
    auto db = open();
    addFolder(db, "C:\\Ñu", "Ñu", 1);
    addFile(db, "C:\\Ñu", "Á.txt", 2, 7, "u :");
    addFile(db, "C:\\Ñu", "b.txt", 10, 7, "Otra :");
    EXPECT_EQ(count(db, "select * from datos where disco=('U :')"), 2);
    EXPECT_EQ(count(db, "select * from datos where disco<>('u :') "), 1);
    EXPECT_EQ(count(db, "select * from datos where disco like('U :') and tipo =('archivo')"), 1);
    EXPECT_EQ(count(db, "select * from datos where disco in ('otra :', 'none')"), 1);
    EXPECT_EQ(count(db, "select * from datos where tipo <>('ARCHIVO')"), 1);
    EXPECT_EQ(count(db, "select * from datos where archivo =('á.TXT')"), 1);
    EXPECT_EQ(count(db, "select * from datos where archivo =('a.txt')"), 0);
    EXPECT_EQ(count(db, "select * from datos where archivo <> ('x') or archivo like ('*')"), 2);
    EXPECT_EQ(count(db, "select * from datos where not archivo like '*.txt'"), 0);
    EXPECT_EQ(count(db, "select * from datos where nivel >('1')"), 2);  // as texts
    EXPECT_EQ(count(db, "select * from datos where nivel >('10')"), 1);
    EXPECT_EQ(column(db, "disco", "select disco from datos group by disco order by disco"), "Otra : U : u :");
    EXPECT_EQ(count(db, "select disco from datos group by disco"), 3);
    EXPECT_EQ(column(db, "archivo", "select * from datos where (((disco)='otra :') and (nivel='10'))"),
              "b.txt");
}

TEST_F(DialectTest, OrAndNotBindAsTheyShould) {
    auto db = open();
    for (int i = 1; i <= 4; ++i)
        addFile(db, "r" + std::to_string(i), "f" + std::to_string(i), i, i, "U :", i);
    const auto rowsOf = [&](const std::string& condition) {
        return column(db, "numero", "select * from datos where " + condition + "order by numero");
    };
    EXPECT_EQ(rowsOf("nivel='1' or nivel='2' and largo=9 "), "1");
    EXPECT_EQ(rowsOf("(nivel='1' or nivel='2') and largo=2 "), "2");
    EXPECT_EQ(rowsOf("not (largo=1 or largo=2)"), "3 4");
    EXPECT_EQ(rowsOf("largo between(2)and (3)"), "2 3");
    EXPECT_EQ(rowsOf("largo>-1.5e2 and not archivo=\"F1\"and .5<largo and largo<>'3,0'"), "2 4");
    EXPECT_EQ(rowsOf("largo not between(2)and (3)"), "1 4");
    EXPECT_EQ(rowsOf("archivo not like ('F[1-3]')"), "4");
    EXPECT_EQ(rowsOf("ruta not in ('R1', 'r4') and not largo = 2"), "3");
    EXPECT_EQ(rowsOf("comentario not like ('*') or comentario is not null "), "");  // null is neither
    EXPECT_EQ(rowsOf("disco=('u :') and largo=1 or disco=('U :') and largo=3 or disco=('x') and largo=4"),
              "1 3");
    EXPECT_EQ(rowsOf("disco=('u :') and largo=1 or disco=('U :') and nivel='3'"), "1 3");
    EXPECT_EQ(
        rowsOf("disco=('U :') and ruta =('R2') and archivo =('F2')or disco=('U :') and ruta =('r3') and "
               "carpeta =('C') "),
        "2 3");
}

TEST_F(DialectTest, OrdersDownwardsAndByTwoColumnsWithTiesAsInserted) {
    auto db = open();
    for (const char* name : {"nz", "ábaco", "abeto", "NA", "na"}) addFolder(db, "r", name, 1);
    addFile(db, "r", "in folder c");
    EXPECT_EQ(column(db, "carpeta", "select carpeta from datos where nivel='1' order by carpeta desc"),
              "nz NA na c abeto ábaco");
    EXPECT_EQ(column(db, "carpeta", "select carpeta from datos where nivel='1' order by largo, carpeta"),
              "ábaco abeto NA na nz c");
}

TEST_F(DialectTest, NamesInPatternsStandForThemselvesToo) {
    auto db = open();
    for (const char* name : {"Music [2003]", "Music 2", "C# code", "C4 code", "what?", "[", "a]b", "[]"})
        addFile(db, std::string("E:\\") + name + "\\x", name);
    const auto found = [&](const std::string& test) {
        return column(db, "archivo", "select archivo from datos where " + test + " order by archivo");
    };
    EXPECT_EQ(found("ruta like ('*\\Music [2003]\\*')"), "Music [2003] Music 2");
    EXPECT_EQ(found("ruta like ('*\\C# code\\*') and nivel='1'"), "C# code C4 code");
    EXPECT_EQ(found("ruta like ('*\\what?\\*')"), "what?");
    EXPECT_EQ(found("ruta like ('*\\[]\\*')"), "[]");
    EXPECT_EQ(found("archivo like ('what?')"), "what?");
    EXPECT_EQ(found("archivo like ('a]b') or archivo like ('[')"), "[ a]b");
    EXPECT_EQ(found("archivo like ('*[[]*')"), "[ [] Music [2003]");  // with a star it is a pattern alone
    EXPECT_EQ(found("archivo like ('*c [2003]*')"), "Music 2");
}

TEST_F(DialectTest, ChangesRows) {
    auto db = open();
    addFile(db, "r", "a.txt");
    addFile(db, "r", "b.txt");
    EXPECT_EQ(db.Execute("update datos set comentario='it''s; drop table datos --' where archivo =('A.TXT')"),
              1);
    EXPECT_EQ(column(db, "comentario", "select comentario from datos where comentario like '*DROP*'"),
              "it's; drop table datos --");
    EXPECT_EQ(db.Execute("update datos set disco='V :' where disco=('u :')"), 2);
    EXPECT_EQ(count(db, "select * from datos where disco=('V :')"), 2);
    EXPECT_EQ(db.Execute("delete * from datos where disco like ('v :') and archivo='a.txt'"), 1);
    EXPECT_EQ(db.Execute("delete * from datos "), 1);
    EXPECT_EQ(count(db, "select * from datos order by numero"), 0);
}

TEST_F(DialectTest, RefusesWhatTheEngineWouldRefuse) {
    auto db = open();
    addFile(db, "r", "a.txt");
    const std::string select = "select * from datos where ";
    for (const std::string& where :
         test::parts("largo between(1)and (2)and archivo  like ('*a*.htm') or where largo between(1)and (2)|"
                     "largo between(1)and (2) fecha between(1)and (2)|fecha between(38123,5)and (38124)|"
                     "archivo = 'it's'|nivel='1'; delete * from datos|nivel='1' nivel|(nivel='1'||"
                     "fecha = #1/1/2003#|" +
                     std::string(500, '(') + "nivel='1'" + std::string(500, ')')))
        EXPECT_EQ(errorOf(db, select + where), 3075) << where;
    for (const std::string& sql : test::parts(
             "update datos set comentario='a'b' where disco='U :'|select from datos|vacuum||drop table datos|"
             "update datos set comentario='a where disco='U :'|select archivo from datos group by disco|"
             "select * into copia from datos|pragma journal_mode = wal|attach 'x' as y"))
        EXPECT_EQ(errorOf(db, sql), 3075) << sql;
    for (const char* where : {"tamano = 1", "rowid = 1"}) EXPECT_EQ(errorOf(db, select + where), 3061);
    for (const char* sql : {"select * from sqlite_schema", "delete * from otra"})
        EXPECT_EQ(errorOf(db, sql), 3078) << sql;
    EXPECT_EQ(errorOf(db, select + "nivel='1' ; "), 0);
    EXPECT_EQ(count(db, "select * from datos"), 1);
}

}  // namespace
