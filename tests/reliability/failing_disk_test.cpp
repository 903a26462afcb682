// A disk that fails at any moment, once or from then on, under everything that is done with a catalogue: the
// answer is the whole one or an error, and the file holds what it held or what it was to hold.
//
//     reliability_failing_disk_test [STRIDE]      tries every STRIDE-th moment; 1 is every one, 7 unless told

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>

#include "core/catalogue_file.h"
#include "core/maintenance.h"
#include "core/units.h"
#include "reliability/catalogue_check.h"
#include "support/faulty_vfs.h"

namespace {

namespace fs = std::filesystem;
using Answer = engine::Result<std::string>;

int stride = 7;

struct Work {
    const char* name;
    std::function<Answer(const std::string& catalogue)> run;
};

Answer rows(const std::string& catalogue, const char* sql, engine::SearchMemory* memory = nullptr) {
    auto database = engine::OpenDatabase(catalogue, engine::Use::ReadOnly);
    if (!database) return std::unexpected(database.error());
    if (memory) database->SearchWith(*memory);
    auto set = database->OpenRecordset(sql);
    if (!set) return std::unexpected(set.error());
    std::string answer = std::to_string(set->RecordCount()) + ':';
    for (; !set->Eof(); set->MoveNext())
        for (const char* field : {"disco", "archivo", "comentario"}) answer += set->Field(field).text();
    if (set->error()) return std::unexpected(*set->error());
    return answer;
}

// The answer that all of several searches give which end; the memory that they share is filled and used.
Answer searches(const std::string& catalogue) {
    const char* const sql = "select * from datos where archivo like ('*17*') order by archivo";
    engine::SearchMemory memory;
    std::optional<Answer> common;
    for (int i = 0; i < 3; ++i) {
        Answer answer = rows(catalogue, sql, &memory);
        if (answer && common && *common && **common != *answer) return "several answers";
        if (answer || !common) common = std::move(answer);
    }
    return *common;
}

// One transaction after the other, as a scan writes them; the answer tells how far it came.
Answer change(const std::string& catalogue, const std::vector<std::vector<std::string>>& transactions) {
    auto database = engine::OpenDatabase(catalogue);
    if (!database) return std::unexpected(database.error());
    for (const auto& statements : transactions) {
        engine::Transaction transaction(*database);
        if (auto begun = transaction.begin(); !begun) return std::unexpected(begun.error());
        for (const std::string& statement : statements)
            if (const auto done = database->Execute(statement); !done) return std::unexpected(done.error());
        if (auto committed = transaction.commit(); !committed) return std::unexpected(committed.error());
    }
    return "done";
}

std::vector<std::string> inserts(int from, int to) {
    std::vector<std::string> statements;
    for (int i = from; i < to; ++i) {
        core::CatalogRow row = test::fileRow("New :", "E:\\new", "file " + std::to_string(i));
        row.numero = i;
        statements.push_back(core::insertFile(row));
    }
    return statements;
}

Answer done(const engine::Result<>& result) {
    if (!result) return std::unexpected(result.error());
    return "done";
}

auto reading(const char* sql) {
    return [sql](const std::string& catalogue) { return rows(catalogue, sql); };
}
auto changing(const std::vector<std::vector<std::string>>& transactions) {
    return [transactions](const std::string& catalogue) { return change(catalogue, transactions); };
}

const Work readings[]{
    {"units", reading("select disco from datos group by disco order by disco")},
    {"list",
     reading("select * from datos where disco=('Victim :') and ruta like ('*\\folder3*') order by carpeta")},
    {"search", reading("select * from datos where archivo like ('*7*') order by archivo")},
    {"searches", searches},
    {"everything", reading("select * from datos order by numero")},
    {"backup", [](const std::string& c) { return done(core::backUpCatalogue(c, c + ".copy")); }},
    {"compact", [](const std::string& c) { return done(core::compactCatalogue(c)); }},
    {"repair",
     [](const std::string& c) -> Answer {
         const auto repaired = core::repairCatalogue(c);
         if (!repaired) return std::unexpected(repaired.error());
         return repaired->empty() ? "sound" : "salvaged a sound file";
     }},
};

const Work changes[]{
    {"note", changing({{"update datos set comentario='noted' where archivo=('file 65.txt')"}})},
    {"rename", changing({{"update datos set disco='Renamed :' where disco=('Victim :')"}})},
    {"delete", changing({{"delete * from datos where disco like ('Victim :')"}})},
    {"scan", changing({inserts(1, 40), inserts(40, 80), inserts(80, 120)})},
};

class FailingDisk : public testing::Test {
  protected:
    void SetUp() override {
        fs::current_path(work.path());
        test::makeCatalogue(original, {"Earlier", "Victim"}, 300);
        old = test::contentOf(original);
    }
    void TearDown() override { fs::current_path("/"); }

    void restore() const {
        fs::remove(catalogue + "-journal");
        fs::remove(catalogue + ".copy");
        fs::copy_file(original, catalogue, fs::copy_options::overwrite_existing);
    }

    // Runs a work with each moment failing in its turn.
    void failEverywhere(const Work& work, const std::function<void(const Answer&)>& check) {
        restore();
        test::disk::failAt(0);
        const Answer whole = work.run(catalogue);
        const int calls = test::disk::calls();
        ASSERT_TRUE(whole) << work.name << ": " << whole.error().text;
        check(whole);
        for (const bool always : {false, true})
            for (int n = 1 + stride / 2; n <= calls; n += stride) {
                SCOPED_TRACE(std::string(work.name) + ", call " + std::to_string(n) + " of " +
                             std::to_string(calls) + (always ? " and all later" : ""));
                restore();
                test::disk::failAt(n, always);
                const Answer answer = work.run(catalogue);
                test::disk::failAt(0);
                if (answer) {
                    EXPECT_EQ(*answer, *whole);
                }
                check(answer);
                if (HasFailure()) return;
            }
    }

    test::TemporaryFolder work;
    const std::string original = work / "original.zrq";
    const std::string catalogue = work / "catalogue.zrq";
    test::Content old;
};

TEST_F(FailingDisk, AnAnswerIsWholeOrAnError) {
    for (const Work& reading : readings)
        failEverywhere(reading, [&](const Answer&) {
            EXPECT_EQ(test::contentOf(catalogue), old);
            if (fs::exists(catalogue + ".copy")) {
                EXPECT_EQ(test::contentOf(catalogue + ".copy"), old);
            }
            for (const auto& entry : fs::directory_iterator(work.path()))
                EXPECT_TRUE(entry.path().filename().string().find("zarquelin-") == std::string::npos &&
                            entry.path().filename() != core::compactedName)
                    << entry.path() << " was left";
        });
}

TEST_F(FailingDisk, AChangeIsDoneOrNotAndSaysSo) {
    for (const Work& work : changes) {
        test::Content next;
        bool isFirst = true;
        failEverywhere(work, [&](const Answer& answer) {
            const test::Content now = test::contentOf(catalogue);
            if (std::exchange(isFirst, false)) next = now;
            if (answer) {
                EXPECT_EQ(now, next);
            } else if (now != old && now != next) {
                // Of a scan, whole transactions.
                auto rest = now;
                const std::size_t rows = rest["New :"].size();
                EXPECT_TRUE(rows == 39 || rows == 79) << rows;
                rest.erase("New :");
                EXPECT_EQ(rest, old);
            }
        });
    }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (argc > 1) stride = std::atoi(argv[1]);
    return RUN_ALL_TESTS();
}
