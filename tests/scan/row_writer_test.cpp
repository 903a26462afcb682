#include "scan/row_writer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <thread>

#include "core/inserts.h"
#include "scan/catalogue_fixture.h"
#include "scan/status_text.h"

namespace {

using namespace std::chrono_literals;

std::string statement(int numero) {
    core::CatalogRow row = test::folderRow("U :", "E:\\c");
    row.numero = numero;
    return core::insertFolder(row);
}

class Writing : public testing::Test {
  protected:
    test::CatalogueFixture catalogue;
    engine::Database database = catalogue.open();
    scan::TimedTransactions::Clock::time_point now{};
    scan::TimedTransactions rows{database, "New", [this] { return now; }, 3};
};

TEST_F(Writing, CommitsAQuarterSecondAfterTheFirstRow) {
    rows.insert(statement(1));
    now += 200ms;
    rows.insert(statement(2));
    EXPECT_EQ(rows.summary().written, 0);
    now += 50ms;
    rows.commitIfDue();
    EXPECT_EQ(catalogue.rows().size(), 2U);
    rows.insert(statement(3));
    now += 250ms;
    rows.insert(statement(4));
    EXPECT_EQ(rows.summary().written, 3);
}

TEST_F(Writing, LosesOnlyTheRowThatTheEngineRefuses) {
    rows.insert(statement(1));
    rows.insert("insert into nothing");
    rows.insert(statement(2));
    rows.commit();
    EXPECT_EQ(rows.summary().written, 2);
    EXPECT_EQ(rows.summary().lost, 1);
    ASSERT_TRUE(rows.summary().firstError);
    EXPECT_EQ(catalogue.rows().size(), 2U);
}

TEST_F(Writing, WaitsBetweenItsTriesForALockedCatalogue) {
    {
        engine::Database other = catalogue.open();
        engine::Transaction held(other);
        ASSERT_TRUE(held.begin());
        for (int i = 0; i < 10'000; ++i) rows.insert(statement(i));  // one try, not ten thousand
        EXPECT_EQ(rows.summary().lost, 10'000);
        ASSERT_TRUE(rows.summary().firstError);
        EXPECT_EQ(rows.summary().firstError->number, engine::error::locked);
    }
    now += 300ms;
    rows.insert(statement(1));
    rows.commit();
    EXPECT_EQ(rows.summary().written, 1);
    rows.insert(statement(2));
    database.Close();
    rows.commit();
    database = catalogue.open();
    rows.insert(statement(3));
    EXPECT_EQ(rows.summary().lost, 10'002) << "nor does it try at once where a commit failed";
}

TEST_F(Writing, WaitsForAnotherProgramsLongChange) {
    std::latch locked(1);
    std::thread other([&] {
        engine::Database holder = catalogue.open(), third = catalogue.open();
        EXPECT_TRUE(holder.BeginTrans());
        locked.count_down();
        for (int seconds = 0; seconds < 2; ++seconds) EXPECT_FALSE(third.BeginTrans());
    });
    locked.wait();
    rows.insert(statement(1));
    rows.commit();
    other.join();
    EXPECT_EQ(rows.summary().written, 1);
}

TEST_F(Writing, LetsOthersWriteBetweenTwoTransactions) {
    std::atomic<bool> ended = false;
    std::thread other([&] {
        engine::Database database = catalogue.open();
        for (int i = 0; i < 15; ++i) EXPECT_TRUE(database.Execute(statement(i)));
        ended = true;
    });
    scan::TimedTransactions scanning(database, "New");
    while (!ended) scanning.insert(statement(1));
    other.join();
    EXPECT_EQ(scanning.summary().lost, 0);
}

TEST_F(Writing, LeavesAUnitAloneThatAnotherProgramHasMadeMeanwhile) {
    catalogue.add(test::folderRow("new :", "E:\\x"));
    rows.insert(statement(1));
    rows.commit();
    rows.insert(statement(2));
    EXPECT_TRUE(rows.summary().nameTaken);
    EXPECT_EQ(rows.summary().lost, 2);
    EXPECT_EQ(catalogue.rows().size(), 1U);
}

TEST(RowWriter, GivesSignsWhileAnotherProgramWrites) {
    test::CatalogueFixture catalogue;
    engine::Database database = catalogue.open(), other = catalogue.open();
    ASSERT_TRUE(other.BeginTrans());
    scan::RowWriter rows(database, "New", [&] { other.Rollback(); });
    rows.insert(statement(1));
    rows.commit();
    EXPECT_EQ(catalogue.rows().size(), 1U);
}

TEST(RowWriter, PutsRowsIntoTheFileWhileTheWalkHangs) {
    test::CatalogueFixture catalogue;
    engine::Database database = catalogue.open();
    scan::RowWriter rows(database, "New");
    rows.insert(statement(1));
    const auto limit = std::chrono::steady_clock::now() + 10s;
    while (catalogue.rows().empty() && std::chrono::steady_clock::now() < limit) std::this_thread::yield();
    EXPECT_EQ(catalogue.rows().size(), 1U);
}

TEST(StatusLine, EndsInAnotherSpellingInEnglishOnly) {
    const scan::Counts counts{12, 345};
    EXPECT_EQ(scan::runningStatus(counts, core::Language::Spanish), "  Carpetas: 12  Archivos: 345");
    EXPECT_EQ(scan::finalStatus(counts, core::Language::Spanish), "  Carpetas: 12  Archivos: 345");
    EXPECT_EQ(scan::runningStatus(counts, core::Language::English), "  Folders: 12  Files: 345");
    EXPECT_EQ(scan::finalStatus(counts, core::Language::English), " Folders : 12 Files : 345");
    scan::LeftOut missing;
    for (const scan::Gap gap : {scan::Gap::Content, scan::Gap::Facts, scan::Gap::Depth})
        missing.add(gap, "E:\\x");
    EXPECT_EQ(scan::missingText(missing, {}, core::Language::English),
              "  Not catalogued: 1 folder that could not be read (E:\\x), the date and size of 1 item");
}

}  // namespace
