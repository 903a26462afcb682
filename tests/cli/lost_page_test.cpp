#include <gtest/gtest.h>

#include "support/catalogue_fixture.h"
#include "support/run_command.h"

namespace {

constexpr std::size_t pageSize = 8192;
constexpr char indexLeaf = 0x0a;

// Twenty units, whose index takes several pages.
std::string catalogueBytes() {
    const test::CatalogueFixture catalogue;
    std::vector<core::CatalogRow> rows;
    for (int unit = 10; unit < 30; ++unit) {
        const std::string disco = "Disc number " + std::to_string(unit) + " :";
        rows.push_back(test::folderRow(disco, "E:\\fotos"));
        for (int file = 0; file < 60; ++file)
            rows.push_back(test::fileRow(disco, "E:\\fotos", "beach " + std::to_string(file) + ".jpg"));
    }
    catalogue.add(std::move(rows));
    return test::readFile(catalogue.path);
}

// The rows as they lie in the table.
std::string rowsOf(const std::string& path) {
    auto database = engine::OpenDatabase(path, engine::Use::ReadOnly).value();
    auto rows = database.OpenRecordset("select disco, archivo from datos");
    if (!rows) return rows.error().text;
    std::string all;
    for (; !rows->Eof(); rows->MoveNext())
        all.append(rows->Field("disco").text()).append(rows->Field("archivo").text()).append("\n");
    EXPECT_EQ(rows->error(), nullptr);
    return all;
}

// Whatever page of the index is lost while the table is whole, a command gives the whole answer or says in a
// line why it cannot.
TEST(LostPage, OfTheIndexIsNeverAShorterAnswer) {
    const std::string whole = catalogueBytes();
    const test::TemporaryFolder folder;
    const std::string path = folder / "a.zrq";
    const std::vector<std::string> commands[]{{"search", path, "beach"},
                                              {"search", path, "beach 7", "--unit", "Disc number 21"},
                                              {"list", path, "Disc number 10"},
                                              {"list", path, "disc number 29", "fotos"},
                                              {"stats", path, "Disc number 20"},
                                              {"units", path},
                                              {"rename", path, "Disc number 10", "Other"},
                                              {"delete", path, "Disc number 29"}};
    int told = 0;
    for (const auto& command : commands) {
        // What the command says, and the rows as they are then.
        const auto outcomeOf = [&](const std::string& bytes, test::Outcome& outcome) {
            test::writeFile(path, bytes);
            outcome = test::runCommand(command);
            return outcome.output + rowsOf(path);
        };
        test::Outcome sound;
        const std::string expected = outcomeOf(whole, sound);
        ASSERT_EQ(sound.status, cli::Done) << command[0];
        for (std::size_t page = pageSize; page < whole.size(); page += pageSize) {
            if (whole[page] != indexLeaf) continue;
            for (const char filler : {'\0', '\xff'}) {
                std::string hurt = whole;
                hurt.replace(page, pageSize, pageSize, filler);
                test::Outcome outcome;
                const std::string found = outcomeOf(hurt, outcome);
                if (outcome.status == cli::Done) {
                    EXPECT_TRUE(found == expected) << command[0];
                    continue;
                }
                ++told;
                EXPECT_EQ(outcome.status, cli::UnusableCatalogue) << command[0];
                EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1) << outcome.errors;
            }
        }
    }
    EXPECT_GT(told, 0);
}

}  // namespace
