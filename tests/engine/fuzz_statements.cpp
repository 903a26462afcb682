#include <gtest/gtest.h>

#include "engine/database.h"
#include "engine/maintenance.h"
#include "support/rounds.h"
#include "support/temporary_folder.h"

namespace {

const test::Parts pieces = test::parts(
    "select |* |from |datos |where |disco|ruta |archivo |nivel|largo |fecha |=|<>| like |(|)|('*a*')|'a'|"
    "\"b\"|'|1|-2.5| and | or | not | in |('x','y')| between |(1)and (2)| is null |order by |"
    "group by |carpeta|,|;|insert into datos |(disco,largo) |values |('z','3') |"
    "update datos set |comentario=|numero| desc|\xff|\\|#|--|pragma |attach |null");
const test::Parts starts = test::parts(
    "|select * from datos where |select disco from datos where disco=|update datos set comentario='x' where |"
    "insert into datos (disco,largo) values (");
const test::Parts valid = test::parts(
    "select * from datos where disco=('U :') and nivel=('2') and ruta like ('*\\A\\*') order by carpeta |"
    "select largo from datos where largo > (1) and disco=('U :')|"
    "select disco from datos where (archivo like ('*a[!b-d]#?*')) or not carpeta in ('x','y') group by disco|"
    "select * from datos where fecha between (1)and (2) and comentario is null order by archivo desc, largo|"
    "update datos set disco=('V :'), comentario='n' where disco=('U :')|"
    "insert into datos (disco,largo) values ('z','3') ");

// A valid statement with up to three places spoilt.
std::string nearlyValid(std::mt19937& random) {
    std::string sql = valid[random() % valid.size()];
    for (unsigned changes = random() % 4; changes > 0 && !sql.empty(); --changes) {
        const std::size_t at = random() % sql.size();
        if (random() % 2)
            sql.erase(at, 1 + random() % 5);
        else
            sql.insert(at, pieces[random() % pieces.size()]);
    }
    return sql;
}

// Statements put together or spoilt at random: each is refused with a number or runs, and none but a delete
// loses a row.
TEST(Fuzz, NoStatementLosesARow) {
    const test::TemporaryFolder folder;
    ASSERT_TRUE(engine::CreateDatabase(folder / "a.zrq"));
    auto db = engine::OpenDatabase(folder / "a.zrq", engine::Use::Scratch).value();
    int accepted = 0;
    long long rows = 0;
    std::mt19937 random = test::seeded();
    for (int i = test::rounds(20'000); i > 0; --i) {
        const std::string sql = random() % 2
                                    ? nearlyValid(random)
                                    : starts[random() % starts.size()] + test::randomText(random, pieces, 12);
        const auto changed = db.Execute(sql);
        if (changed && sql.starts_with("insert")) ++rows;
        auto found = db.OpenRecordset(sql);
        if (found) (void)found->RecordCount();
        if (found && !found->Eof()) found->MoveNext();
        accepted += changed || found;
        if (i % 100 != 0) continue;
        ASSERT_EQ(db.OpenRecordset("select * from datos order by numero")->RecordCount(), rows);
        if (rows < 500) continue;  // more would only slow the rounds down
        ASSERT_EQ(db.Execute("delete * from datos"), rows);
        rows = 0;
    }
    EXPECT_GT(accepted, 0);
}

}  // namespace
