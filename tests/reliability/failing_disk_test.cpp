// A disk that fails at any moment, once or from then on, under everything that leaves a catalogue's rows
// alone: the answer is the whole one or an error, and the file holds what it held.
//
//     ROUNDS=STRIDE reliability_failing_disk_test     tries every STRIDE-th moment; 1 is every one, 7 unless
//     told

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "core/catalogue_file.h"
#include "core/maintenance.h"
#include "reliability/catalogue_check.h"
#include "support/faulty_vfs.h"
#include "support/rounds.h"

namespace {

namespace fs = std::filesystem;
using Answer = engine::Result<std::string>;

const int stride = test::rounds(7);

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

Answer done(const engine::Result<>& result) {
    if (!result) return std::unexpected(result.error());
    return "done";
}

auto reading(const char* sql) {
    return [sql](const std::string& catalogue) { return rows(catalogue, sql); };
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

class FailingDisk : public testing::Test {
  protected:
    void SetUp() override {
        fs::current_path(work.path());
        test::makeCatalogue(original, {"Earlier", "Victim"}, 300);
        old = test::contentOf(original);
    }
    void TearDown() override { fs::current_path("/"); }

    // The catalogue holds what it held, a copy too, and nothing else was left.
    void expectUntouched() const {
        EXPECT_EQ(test::contentOf(catalogue), old);
        if (fs::exists(catalogue + ".copy")) {
            EXPECT_EQ(test::contentOf(catalogue + ".copy"), old);
        }
        for (const auto& entry : fs::directory_iterator(work.path()))
            EXPECT_TRUE(!entry.path().filename().string().contains("zarquelin-") &&
                        entry.path().filename() != core::compactedName)
                << entry.path() << " was left";
    }

    Answer runFailing(const Work& work, int n, bool always) const {
        fs::remove(catalogue + "-journal");
        fs::remove(catalogue + ".copy");
        fs::copy_file(original, catalogue, fs::copy_options::overwrite_existing);
        test::disk::failAt(n, always);
        return work.run(catalogue);
    }

    test::TemporaryFolder work;
    const std::string original = work / "original.zrq";
    const std::string catalogue = work / "catalogue.zrq";
    test::Content old;
};

TEST_F(FailingDisk, AnAnswerIsWholeOrAnError) {
    for (const Work& reading : readings) {
        const Answer whole = runFailing(reading, 0, false);
        const int calls = test::disk::calls();
        ASSERT_TRUE(whole) << reading.name << ": " << whole.error().text;
        expectUntouched();
        for (const bool always : {false, true})
            for (int n = 1 + stride / 2; n <= calls && !HasFailure(); n += stride) {
                SCOPED_TRACE(std::string(reading.name) + ", call " + std::to_string(n) + " of " +
                             std::to_string(calls) + (always ? " and all later" : ""));
                const Answer answer = runFailing(reading, n, always);
                test::disk::failAt(0);
                if (answer) {
                    EXPECT_EQ(*answer, *whole);
                }
                expectUntouched();
            }
    }
}

}  // namespace
