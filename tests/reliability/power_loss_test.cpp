// The power is cut at any moment: of what was written, made, renamed or deleted but not flushed, each part
// may have reached the disk or not. The catalogue opens, is sound, and holds what was reported as done.
//
//     ROUNDS=CUTS reliability_power_loss_test     of each work; 8 unless told

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <random>
#include <span>

#include "engine/maintenance.h"
#include "reliability/catalogue_check.h"
#include "reliability/recorded_disk.h"
#include "reliability/work.h"
#include "support/another_program.h"
#include "support/rounds.h"

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;
using Disk = test::RecordedDisk;
using Chance = Disk::Chance;

const int cutsOfEach = test::rounds(8);
constexpr Chance chances[]{Chance::Nothing, Chance::Everything, Chance::Newest, Chance::Any};

// When the power is cut: at the end, and before flushes, when most is pending; then at any time.
std::vector<std::size_t> momentsIn(const std::vector<test::DiskEvent>& events, std::minstd_rand& random) {
    std::vector<std::size_t> moments;
    for (std::size_t i = 0; i < events.size(); ++i)
        if (events[i].what == "flush") moments.push_back(i);
    std::ranges::shuffle(moments, random);
    moments.insert(moments.begin(), events.size());
    while (moments.size() < std::size_t(cutsOfEach)) moments.push_back(random() % events.size());
    moments.resize(std::size_t(cutsOfEach));
    return moments;
}

bool isStartOf(const test::Content& less, const test::Content& more) {
    return std::ranges::all_of(less, [&](const auto& unit) {
        const auto whole = more.find(unit.first);
        return whole != more.end() && unit.second.size() <= whole->second.size() &&
               std::equal(unit.second.begin(), unit.second.end(), whole->second.begin());
    });
}

class PowerLoss : public testing::Test {
  protected:
    void SetUp() override {
        for (const std::string& path : {folder, after}) fs::create_directory(path);
        fs::current_path(folder);
        test::makeCatalogue(catalogue, {"Earlier", "Victim"}, 300);
    }
    void TearDown() override { fs::current_path("/"); }

    // What the catalogue of a folder holds: of one that no program opens, that it is as it was; of a damaged
    // one, what a repair still finds.
    test::Content contentOf(const Disk::Image& image) {
        for (const auto& entry : fs::directory_iterator(after)) fs::remove(entry);
        for (const auto& [name, bytes] : image) test::writeFile(after + '/' + name, bytes);
        const auto found = image.find("catalogue.zrq");
        if (found == image.end()) return {{"none", {}}};
        const bool hasForeignJournal = image.contains("catalogue.zrq-journal") && isUnreadable(other);
        if (found->second == unreadable) return {{hasForeignJournal ? "to be spoilt" : "as it was", {}}};
        const std::string path = after + "/catalogue.zrq";
        if (!repaired.empty() && found->second != repaired) {
            EXPECT_TRUE(engine::RepairDatabase(path));
        }
        return test::contentOf(path);
    }

    // Runs one command after the other, each reported as done when it ends, and cuts the power all over them.
    void cutEverywhere(const std::vector<Words>& commands) {
        const Disk before(folder);
        std::vector<Disk::Image> images{before.now()};
        std::vector<std::size_t> reports;  // how much was recorded when each was done
        for (const Words& words : commands) {
            ASSERT_EQ(
                test::workStatus(words, {.environment = {"LD_PRELOAD=" FAILING_CALLS_LIBRARY,
                                                         "CALL_RECORD=" + record, "ZARQUELIN_DRIVES=C=/"}}),
                0)
                << words[0];
            reports.push_back(test::recordedEvents(record).size());
            images.push_back(Disk(folder).now());
        }
        if (commands[0][0] == "repair") repaired = images[1].at("catalogue.zrq");
        std::vector<test::Content> states;
        for (const auto& image : images) states.push_back(contentOf(image));
        const auto events = test::recordedEvents(record);
        ASSERT_GT(events.size(), 5U);
        std::minstd_rand random(7);
        int cuts = 0;
        for (const std::size_t moment : momentsIn(events, random)) {
            Disk disk = before;
            for (const auto& event : std::span(events).first(moment)) disk.add(event);
            const auto done = std::size_t(std::ranges::upper_bound(reports, moment) - reports.begin());
            for (const Chance ofNames : chances)
                for (const Chance ofBytes : chances) {
                    SCOPED_TRACE("event " + std::to_string(moment) + " of " + std::to_string(events.size()) +
                                 ", chances " + std::to_string(int(ofNames)) + std::to_string(int(ofBytes)));
                    const auto image = disk.cut(ofNames, ofBytes, random);
                    expectOneOf(image, states, done, done < commands.size() && commands[done][0] == "scan");
                    if (HasFailure()) return;
                    ++cuts;
                }
        }
        std::cout << commands[0][0] << '\t' << events.size() << " events, " << cuts << " images\n";
    }

    void expectOneOf(const Disk::Image& image, const std::vector<test::Content>& states, std::size_t done,
                     bool grows) {
        const test::Content now = contentOf(image);
        const auto left = std::span(states).subspan(done);
        EXPECT_TRUE(std::ranges::find(left, now) != left.end() ||
                    (grows && isStartOf(left[0], now) && isStartOf(now, left[1])))
            << done << " commands were reported as done";
        if (!repaired.empty() && image.at("catalogue.zrq") == repaired) {
            EXPECT_TRUE(image.contains("catalogue.zrq.damaged") &&
                        image.at("catalogue.zrq.damaged") == test::readFile(catalogue + ".damaged"));
        }
    }

    [[nodiscard]] bool isUnreadable(const std::string& path) const {
        return fs::exists(path) && test::readFile(path) == unreadable;
    }

    test::TemporaryFolder work;
    const std::string folder = work / "run", after = work / "after", record = work / "record";
    const std::string catalogue = folder + "/catalogue.zrq", other = work / "other.zrq";
    std::string unreadable;  // bytes of the catalogue, when no program can open it
    std::string repaired;    // its bytes at the end, when it was damaged
};

TEST_F(PowerLoss, WhatIsReportedAsDoneIsThere) {
    const std::string tree = work / "tree", rows = work / "rows.csv";
    test::makeTree(tree, 4, 12);
    test::makeCatalogue(other, {"Imported"}, 400);
    ASSERT_EQ(test::cliStatus({"export", other}, {.output = rows}), 0);
    cutEverywhere({{"note", catalogue, "Victim", "E:\\folder3\\file 65.txt", "noted"},
                   {"rename", catalogue, "Victim", "Renamed"},
                   {"import", catalogue, rows},
                   {"scan", catalogue, "New", tree},
                   {"add", catalogue, "Disc", "content"},
                   {"update", catalogue, "Renamed", tree},
                   {"delete", catalogue, "Imported"},
                   {"compact", catalogue}});
}

TEST_F(PowerLoss, ACopyIsTheOldFileOrTheNewOne) {
    test::makeCatalogue(other, {"Other"}, 400);
    fs::remove(catalogue);
    cutEverywhere({{"backup", other, catalogue}});
}

// The way back of an interrupted change of the file that is replaced must not be played into the new one.
TEST_F(PowerLoss, ACopyIsNotSpoiltByTheJournalOfTheOldFile) {
    test::makeCatalogue(other, {"Other"}, 400);
    for (const std::string& spoilt : {std::string(), catalogue, other}) {
        test::inTheMidstOfAChange(catalogue);
        if (!spoilt.empty()) test::writeFile(spoilt, unreadable = "no catalogue");
        cutEverywhere({{"save-as", other, catalogue}});
        if (HasFailure()) return;
        fs::remove(record);
    }
}

TEST_F(PowerLoss, ARepairedFileHasItsOriginalBesideItAndNoJournal) {
    test::inTheMidstOfAChange(catalogue);
    std::string damaged = test::readFile(catalogue);
    test::writeFile(catalogue,
                    damaged.replace(2 * 8192, 8192, 8192, '\0'));  // the index, which did not change
    cutEverywhere({{"repair", catalogue}});
}

}  // namespace
