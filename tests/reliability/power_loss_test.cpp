// The power is cut at any moment: of what was written but not flushed, each part may have reached the disk or
// not. The catalogue opens, is sound, and holds what was reported as done.
//
//     ROUNDS=CUTS reliability_power_loss_test     of each work; 60 unless told

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <span>

#include "core/catalogue_file.h"
#include "core/maintenance.h"
#include "reliability/catalogue_check.h"
#include "support/faulty_vfs.h"
#include "support/rounds.h"

namespace {

namespace fs = std::filesystem;
namespace disk = test::disk;

const int cutsOfEach = test::rounds(60);

// What a disk may hold of one file.
struct DiskFile {
    std::optional<std::string> flushed;  // nothing: no such name
    std::vector<const disk::Event*> pending;
};
using Disk = std::map<std::string, DiskFile>;

void apply(const disk::Event& event, std::optional<std::string>& content) {
    if (const auto* write = std::get_if<disk::Write>(&event.what)) {
        if (!content) content.emplace();
        const std::size_t end = std::size_t(write->offset) + write->bytes.size();
        if (content->size() < end) content->resize(end);
        content->replace(std::size_t(write->offset), write->bytes.size(), write->bytes);
    } else if (const auto* truncate = std::get_if<disk::Truncate>(&event.what)) {
        if (content) content->resize(std::size_t(truncate->size));
    } else if (std::holds_alternative<disk::Delete>(event.what)) {
        content.reset();
    }
}

// Everything up to a moment, as far as flushes have made it certain.
Disk diskAt(const disk::Record& record, std::size_t moment, Disk disk) {
    for (const disk::Event& event : std::span(record).first(moment)) {
        DiskFile& file = disk[event.path];
        const auto* removal = std::get_if<disk::Delete>(&event.what);
        file.pending.push_back(&event);
        if (!std::holds_alternative<disk::Flush>(event.what) && !(removal && removal->flushed)) continue;
        for (const disk::Event* certain : file.pending) apply(*certain, file.flushed);
        file.pending.clear();
    }
    return disk;
}

enum class Chance { Nothing, Everything, Any };

class PowerLoss : public testing::Test {
  protected:
    void SetUp() override {
        fs::current_path(work.path());
        test::makeCatalogue(catalogue, {"Earlier", "Victim"}, 300);
        before = test::readFile(catalogue);
        states.push_back(test::contentOf(catalogue));
    }
    void TearDown() override { fs::current_path("/"); }

    using Step = std::function<bool(const std::string& catalogue)>;

    // Does one step after the other, each reported when it is done, and cuts the power all over them.
    void cutEverywhere(const std::vector<Step>& steps) {
        const std::string other = work / "other.zrq";
        fs::copy_file(catalogue, other);
        for (const Step& step : steps) {
            ASSERT_TRUE(step(other));
            states.push_back(test::contentOf(other));
        }
        disk::startRecord();
        for (const Step& step : steps) {
            ASSERT_TRUE(step(catalogue));
            reports.push_back(disk::record().size());
        }
        const disk::Record record = disk::record();
        ASSERT_GT(record.size(), 5U);
        std::minstd_rand random(7);
        for (int cut = 0; cut < cutsOfEach && !HasFailure(); ++cut) {
            const std::size_t moment = cut == 0 ? record.size() : random() % (record.size() + 1);
            for (const Chance chance : {Chance::Nothing, Chance::Everything, Chance::Any, Chance::Any}) {
                SCOPED_TRACE("event " + std::to_string(moment) + " of " + std::to_string(record.size()) +
                             ", chance " + std::to_string(static_cast<int>(chance)));
                expectWhole(record, moment, chance, random);
            }
        }
    }

    void expectWhole(const disk::Record& record, std::size_t moment, Chance chance,
                     std::minstd_rand& random) {
        Disk disk = diskAt(record, moment, {{catalogue, {before, {}}}});
        for (const char* ending : {"", "-journal"}) {
            const std::string after = work / ("after.zrq" + std::string(ending));
            fs::remove(after);
            DiskFile& file = disk[catalogue + ending];
            for (const disk::Event* maybe : file.pending)
                if (chance == Chance::Everything || (chance == Chance::Any && random() % 2 == 0))
                    apply(*maybe, file.flushed);
            if (file.flushed) test::writeFile(after, *file.flushed);
        }
        const auto reported = std::size_t(std::ranges::upper_bound(reports, moment) - reports.begin());
        const test::Content now = test::contentOf(work / "after.zrq");
        const bool isOneOf = std::ranges::any_of(std::span(states).subspan(reported),
                                                 [&](const test::Content& state) { return state == now; });
        EXPECT_TRUE(isOneOf) << reported << " steps were reported as done";
    }

    test::TemporaryFolder work;
    const std::string catalogue = work / "catalogue.zrq";
    std::string before;
    std::vector<test::Content> states;  // before anything, and after each step
    std::vector<std::size_t> reports;   // the events before each step was reported as done
};

TEST_F(PowerLoss, WhatIsReportedAsDoneIsThere) {
    const auto changing = [](auto change) {
        return [change](const std::string& path) {
            auto database = engine::OpenDatabase(path);
            return database && change(*database).has_value();
        };
    };
    std::vector<Step> steps{
        changing([](auto& database) {
            return database.Execute("update datos set comentario='noted' where archivo=('file 65.txt')");
        }),
        changing([](auto& database) { return core::renameUnit(database, "Victim :", "Renamed"); }),
        changing([](auto& database) { return core::deleteUnit(database, "Renamed :"); }),
        changing([](auto& database) -> engine::Result<> {  // many at once, as an import or an update
            engine::Transaction whole(database);
            if (auto begun = whole.begin(); !begun) return begun;
            for (const core::CatalogRow& row : test::unitOf("Imported", 400))
                if (const auto done = database.Execute(core::insertFile(row)); !done)
                    return std::unexpected(done.error());
            return whole.commit();
        })};
    for (int i = 0; i < 3; ++i)
        steps.push_back(changing([i](auto& database) {
            core::CatalogRow row = test::fileRow("New :", "E:\\new", "file");
            row.numero = i;
            return database.Execute(core::insertFile(row));
        }));
    cutEverywhere(steps);
}

TEST_F(PowerLoss, ACompactedCatalogueHoldsTheSame) {
    ASSERT_TRUE(engine::OpenDatabase(catalogue).value().Execute("delete * from datos where numero > 300"));
    before = test::readFile(catalogue);
    states = {test::contentOf(catalogue)};
    cutEverywhere({[](const std::string& path) { return core::compactCatalogue(path).has_value(); }});
}

}  // namespace
