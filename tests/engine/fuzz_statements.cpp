#include <array>
#include <optional>

#include "engine/database.h"
#include "engine/maintenance.h"
#include "support/fuzz.h"
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
    "select * from datos where largo > (1) or comentario like ('*') order by numero |"
    "update datos set disco=('V :'), comentario='n' where disco=('U :')|"
    "insert into datos (disco,largo) values ('z','3') ");

// A valid statement with up to three places spoilt.
std::string nearlyValid(test::Random& random) {
    std::string sql = random.of(valid);
    for (std::size_t changes = random(4); changes > 0 && !sql.empty(); --changes) {
        const std::size_t at = random(sql.size());
        if (random(2))
            sql.erase(at, 1 + random(5));
        else
            sql.insert(at, random.of(pieces));
    }
    return sql;
}

engine::Database emptyCatalogue(const std::string& path) {
    engine::CreateDatabase(path).value();
    return engine::OpenDatabase(path, engine::Use::Scratch).value();
}

// How many rows there are and what they hold; nothing of a statement that is refused.
std::optional<std::pair<long long, std::string>> rowsOf(engine::Result<engine::Recordset>& found) {
    if (!found) return std::nullopt;
    std::pair<long long, std::string> rows(found->RecordCount(), "");
    for (; !found->Eof(); found->MoveNext())
        rows.second.append(found->Field("disco").text()).append(found->Field("comentario").text()) += ' ';
    return rows;
}

// Statements put together or spoilt at random: each is refused with a number or runs, finds the same alone
// and together with the one before, and none but a delete loses a row.
struct NoStatementLosesARow : test::Fuzz {
    void round(test::Random& random) {
        std::string sql =
            random(2) ? nearlyValid(random) : random.of(starts) + test::randomText(random, pieces, 12);
        test::spoil(sql, random);
        const auto changed = db.Execute(sql);
        if (changed && (sql[sql.find_first_of("iIuU")] | 0x20) == 'i') rows += *changed;  // or an update
        auto found = db.OpenRecordset(sql);
        if (changed || found) ++useful;
        auto both = db.OpenRecordsets(std::array<std::string_view, 2>{last, sql});
        ASSERT_EQ(rowsOf(found), rowsOf(both->back())) << last << '\n' << sql;
        last = sql;
        if (++rounds % 100 != 0) return;
        ASSERT_EQ(db.OpenRecordset("select * from datos order by numero")->RecordCount(), rows);
        if (rows < 500) return;  // more would only slow the rounds down
        ASSERT_EQ(db.Execute("delete * from datos"), rows);
        rows = 0;
    }

    const test::TemporaryFolder folder;
    engine::Database db = emptyCatalogue(folder / "a.zrq");
    std::string last;
    long long rows = 0;
    int rounds = 0;
};
FUZZED(NoStatementLosesARow, 20'000)

}  // namespace
