#include <unistd.h>

#include <array>
#include <filesystem>
#include <random>

#include "catalogue_fixture.h"
#include "engine/rows/one_pass.h"

namespace {

using namespace std::string_view_literals;
using RecordsetTest = CatalogueTest;

TEST_F(RecordsetTest, CountsWithoutMoving) {
    auto db = open();
    for (const char* name : {"b", "a", "c"}) addFile(db, "r", name);
    for (const char* sql :
         {"select * from datos where tipo =('archivo') order by archivo",
          "select * from datos where archivo like '*' order by archivo",
          "select * from datos where archivo like '*'", "select * from datos where largo=7"}) {
        auto rows = db.OpenRecordset(sql);
        ASSERT_TRUE(rows);
        rows->MoveNext();
        const std::string_view view = rows->Field("archivo").text();
        const std::string second(view);
        EXPECT_EQ(rows->RecordCount(), 3);
        EXPECT_EQ(view, second) << sql;
        rows->MoveNext();
        EXPECT_EQ(rows->Field("archivo").text(), "c");
        rows->MoveNext();
        EXPECT_TRUE(rows->Eof());
        EXPECT_EQ(rows->RecordCount(), 3);
        rows->MoveNext();
        EXPECT_TRUE(rows->Field("archivo").isNull());
        EXPECT_EQ(rows->error(), nullptr);
    }
}

TEST_F(RecordsetTest, CountsSeveralAtOnceAsOneByOne) {
    auto db = open();
    for (const char* name : {"b", "a", "C"}) addFile(db, "r", name);
    constexpr std::string_view selects[]{
        "select * from datos where  tipo =('ARCHIVO')  order by archivo ",
        "select archivo from datos where archivo like '[a-b]' and largo=7",
        "select * from datos where not disco =('other') or archivo =('c')",
        "select * from datos",
        "select * from datos where archivo is null",
    };
    const auto counts = db.RecordCounts(selects);
    ASSERT_TRUE(counts);
    for (std::size_t i = 0; i < std::size(selects); ++i)
        EXPECT_EQ((*counts)[i], count(db, std::string(selects[i])));
    EXPECT_EQ(counts->front(), 3);
    EXPECT_FALSE(db.RecordCounts(std::array{"select disco from datos group by disco"sv}));
    EXPECT_FALSE(db.RecordCounts(std::array{"delete * from datos"sv}));
}

TEST_F(RecordsetTest, OpensSeveralAsOneByOne) {
    auto db = open();
    for (const char* name : {"b", "a", "C"}) addFile(db, "r", name);
    addFolder(db, "r", "b", 2);
    constexpr std::string_view selects[]{
        "select * from datos where carpeta like ('*b*') and tipo <>('archivo') order by carpeta",
        "select * from datos where archivo like ('*b*') or carpeta like ('*b*') order by largo, ruta",
        "select * from datos where archivo like ('*') order by archivo desc",
        "select * from datos where archivo like ('*c*",
        "select archivo from datos where archivo like ('*[a-b]*') order by largo, archivo",
        "select * from datos where disco=('u :') and archivo like ('*c*') order by archivo",
        "select * from datos where archivo like ('*c*')",
        "select archivo from datos where archivo like ('*') group by archivo order by archivo",
        "select * from datos order by archivo",
    };
    auto all = db.OpenRecordsets(selects);
    ASSERT_TRUE(all);
    for (std::size_t i = 0; i < std::size(selects); ++i) {
        auto& rows = (*all)[i];
        auto alone = db.OpenRecordset(selects[i]);
        ASSERT_EQ(rows.has_value(), alone.has_value()) << selects[i];
        if (!rows) continue;
        EXPECT_EQ(rows->RecordCount(), alone->RecordCount()) << selects[i];
        for (; !alone->Eof(); alone->MoveNext(), rows->MoveNext())
            for (const char* field : {"archivo", "carpeta", "disco"})
                EXPECT_EQ(rows->Field(field).text(), alone->Field(field).text()) << selects[i];
        EXPECT_TRUE(rows->Eof()) << selects[i];
    }
    EXPECT_EQ((*all)[1]->RecordCount(), 2);
    db.Close();
    EXPECT_FALSE(db.OpenRecordsets(selects)->front());
}

TEST_F(RecordsetTest, EndsWithItsDatabase) {
    auto db = open();
    addFile(db, "r", "a");
    auto direct = db.OpenRecordset("select * from datos where largo=7");
    auto sorted = db.OpenRecordset("select * from datos order by archivo");
    ASSERT_TRUE(direct && sorted && !direct->Eof());
    db.Close();
    for (auto* rows : {&*direct, &*sorted}) {
        EXPECT_TRUE(rows->Eof());
        EXPECT_TRUE(rows->Field("archivo").isNull());
        EXPECT_EQ(rows->RecordCount(), 0);
        rows->MoveNext();
    }
    EXPECT_FALSE(db.OpenRecordset("select * from datos"));
    EXPECT_FALSE(db.Execute("delete * from datos"));
}

// Whatever way the rows are sorted, in memory or on disk, the answer is the same.
TEST_F(RecordsetTest, GivesTheSameRowsHoweverTheyAreGathered) {
    auto db = open();
    std::mt19937 random(1);
    ASSERT_TRUE(db.BeginTrans());
    for (int i = 0; i < 20'000; ++i) {
        std::string name = random() % 3 ? "Ñame" : "zebra";
        for (auto alike = random() % 5; alike > 0; --alike) name += random() % 2 ? " larga " : " Lárga ";
        addFile(db, "r", name + std::to_string(random() % 5000), 1 + i % 12, i % 100,
                i % 1000 < 400 ? "U :" : "V :", i);
    }
    run(db, "update datos set carpeta = null where largo < (50)");
    ASSERT_TRUE(db.CommitTrans());
    const auto connection = engine::Connection::open(path, engine::Use::ReadOnly).value();
    const auto units = std::make_shared<engine::UnitList>(*connection);
    const auto numbersOf = [](engine::Rows& rows) {
        std::string numbers;
        while (!rows.atEnd()) {
            numbers += std::to_string(rows.field(engine::Column::numero).integer()) + ' ';
            EXPECT_TRUE(rows.moveNext());
        }
        return numbers;
    };
    constexpr std::size_t severalShares = 8'000'000;  // in memory
    constexpr std::size_t severalRuns = 100'000;      // on disk
    std::vector<engine::Select> selects;
    std::vector<std::string> inMemory;
    for (const std::string order :
         {"archivo", "archivo desc, largo", "carpeta, largo desc", "nivel, numero"}) {
        const std::string sql =
            "select numero from datos where archivo like ('*ÑAME*7*') and tipo=('archivo') order by " + order;
        engine::StatementReader reader;
        const auto statement = reader.read(sql);
        selects.emplace_back(connection, units, engine::Query(statement.value(), reader.literals()));
        inMemory.push_back(numbersOf(*selects.back().rows().value()));
        EXPECT_GT(inMemory.back().size(), 10'000u);
        EXPECT_EQ(numbersOf(*selects.back().rows(severalShares).value()), inMemory.back()) << order;
        EXPECT_EQ(numbersOf(*selects.back().rows(severalRuns).value()), inMemory.back()) << order;
        ::setenv("TMPDIR", "/nowhere", 1);  // SQLite sorts what no file of ours can hold
        EXPECT_EQ(numbersOf(*selects.back().rows(severalRuns).value()), inMemory.back()) << order;
        ::unsetenv("TMPDIR");
    }
    const auto several = std::to_array({&std::as_const(selects[0]), &std::as_const(selects[3])});
    for (const std::size_t bound : {severalShares, severalRuns}) {
        const auto together = engine::rowsTogether(*connection, several, bound).value();
        EXPECT_EQ(numbersOf(*together[0]), inMemory[0]) << bound;
        EXPECT_EQ(numbersOf(*together[1]), inMemory[3]) << bound;
    }
}

// The file of sorted runs, which has no name any more, is cut off behind what was read of it.
TEST_F(RecordsetTest, SortedRowsThatCannotBeReadBackAreAFailure) {
    auto db = open();
    ASSERT_TRUE(db.BeginTrans());
    constexpr int rowsInFile = 20'000;
    for (int i = 0; i < rowsInFile; ++i) addFile(db, "r", std::string(400, 'a' + i % 26) + std::to_string(i));
    ASSERT_TRUE(db.CommitTrans());
    const auto connection = engine::Connection::open(path, engine::Use::ReadOnly).value();
    engine::StatementReader reader;
    const auto statement = reader.read("select * from datos order by archivo").value();
    const engine::Select select(connection, std::make_shared<engine::UnitList>(*connection),
                                {statement, reader.literals()});
    const auto rows = select.rows(10'000'000).value();
    EXPECT_EQ(rows->field(engine::Column::archivo).text(), std::string(400, 'a') + "0");
    int cut = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code closed;
        const std::string leadsTo = std::filesystem::read_symlink(entry, closed);
        if (leadsTo.contains("/zarquelin-") && leadsTo.ends_with(" (deleted)"))
            cut += ::truncate(entry.path().c_str(), 0) == 0;
    }
    ASSERT_EQ(cut, 1);
    int given = 0;
    engine::Result<> moved;
    for (; moved && !rows->atEnd(); moved = rows->moveNext()) ++given;
    EXPECT_FALSE(moved);
    EXPECT_LT(given, rowsInFile);
}

TEST_F(RecordsetTest, CountsAfterAnotherHandlesChange) {
    auto db = open();
    for (const char* name : {"viaje 1", "boda", "viaje 2"}) addFile(db, "r", name, 1, 1);
    const std::string found = "select * from datos where archivo like ('*VIAJE*')";
    EXPECT_EQ(column(db, "archivo", found + " order by archivo"), "viaje 1 viaje 2");
    auto other = open();
    addFile(other, "r", "viaje 3", 1, 1);
    EXPECT_EQ(count(db, found + " order by archivo"), 3);
    EXPECT_EQ(column(db, "archivo", found), "viaje 1 viaje 2 viaje 3");
    EXPECT_EQ(count(db, "select * from datos where disco=('nueva :')"), 0);
    run(other, "update datos set disco='Nueva :' where archivo='viaje 3'");
    EXPECT_EQ(count(db, "select * from datos where disco=('nueva :')"), 1);
    EXPECT_EQ(column(db, "disco", "select disco from datos group by disco order by disco"), "Nueva : U :");
    run(db, "delete * from datos where archivo = 'viaje 1'");
    EXPECT_EQ(count(db, found + " order by archivo"), 2);
}

}  // namespace
