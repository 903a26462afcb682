#include "search/search_run.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "search/result_row.h"
#include "search/sample_catalogue.h"

namespace {

using search::SearchRequest;
using Names = std::vector<std::string>;

const core::Rotulos& captions = core::rotulos(core::Language::English);

class FoundItems : public search::ResultSink {
  public:
    explicit FoundItems(lists::RowMemory& memory) : m_memory(memory) {}
    void clear() override { items.clear(); }
    void add(const engine::Recordset& row, const search::Pass& pass) override {
        items.push_back(search::resultItem(row, pass, core::Language::English, m_memory));
    }
    std::vector<lists::ListItem> items;

  private:
    lists::RowMemory& m_memory;
};

class SearchRun : public testing::Test {
  protected:
    // Only what differs from a search for "" of all types and units is stated.
    Names find(const std::function<void(SearchRequest&)>& state) {
        SearchRequest request = search::requestFor("", captions);
        request.maximum = "100000";
        state(request);
        FoundItems collected(memory);
        outcome = search::runPasses(database, search::passesOf(request, captions), counters, collected);
        items = collected.items;
        Names names;
        for (const lists::ListItem& item : items) names.push_back(item.text);
        return names;
    }
    static void dated(SearchRequest& request, double from, double until) {
        request.date = true;
        request.from = from;
        request.until = until;
    }

    SampleCatalogue sample;
    engine::Database database = sample.open(engine::Use::ReadOnly);
    lists::RowMemory memory;
    search::FoundCounts counters;
    engine::Result<> outcome;
    std::vector<lists::ListItem> items;
    const double ofTheYears[2] = {core::serialOfDate(2000, 1, 1), core::serialOfDate(2010, 1, 1)};
};

TEST_F(SearchRun, FoldersComeFirstThenFilesEachInOrderOfName) {
    EXPECT_EQ(find([](auto& r) { r.name = "FOTO"; }), (Names{"fotos", "foto1.jpg", "foto2.JPG"}));
    EXPECT_EQ(counters, (search::FoundCounts{1, 2}));
    EXPECT_EQ(find([](auto& r) { r.name = "?.a"; }), (Names{"a.asfa", "a.avi"}));
    EXPECT_EQ(counters, (search::FoundCounts{0, 2}));
    EXPECT_EQ(find([](auto& r) { r.unit = "Fotos :"; }),
              (Names{"fotos", "cinta.mpeg", "foto1.jpg", "foto2.JPG"}));
}

TEST_F(SearchRun, ItemsOfFoldersAndFiles) {
    find([](auto& r) { r.name = "foto"; });
    const auto told = [this](std::size_t at) {
        const lists::ListItem& item = items.at(at);
        return std::to_string(item.picture) + '|' + item.type + '|' + item.notes + '|' + item.nameKey + '|' +
               std::to_string(item.largo.value_or(-1)) + '|' + item.disco + '|' + item.ruta;
    };
    EXPECT_EQ(told(0), "3|Files folder||afotos|-1|Fotos :|E:\\fotos");
    EXPECT_EQ(told(1), "8|Picture file|en la playa|bfoto1.jpg|100|Fotos :|E:\\fotos");
    EXPECT_EQ(items[0].smallPicture, 2);
    EXPECT_TRUE(items[1].dateKeyIsSerial);
    EXPECT_EQ(items[2].notes, "");
    find([](auto& r) { r.name = "foto", r.size = true; });
    EXPECT_EQ(items.at(0).nameKey + items.at(0).notes, "") << "searched by size, folders have neither";
    EXPECT_EQ(items.at(1).nameKey, "bfoto1.jpg");
    // Among results .vox is audio and .mpeg a plain file; capital and small letters mixed are none's.
    find([](auto& r) { r.name = "a.vox"; });
    EXPECT_EQ(items.at(0).type, "Audio file");
    find([](auto& r) { r.name = "cinta"; });
    EXPECT_EQ(items.at(0).type, "File");
}

TEST_F(SearchRun, SizesAreBoundsAndDatesIncludeTheWholeLastDay) {
    EXPECT_EQ(find([](auto& r) { r.size = true, r.minimum = "20", r.maximum = "30"; }),
              (Names{"fotos", "sonidos", "a.Mp3", "b.mp3"}));
    const double day = core::serialOfDate(2003, 5, 31);
    EXPECT_EQ(find([&](auto& r) { dated(r, day, day); }), (Names{"cinta.mpeg", "foto2.JPG"}));
    EXPECT_EQ(find([&](auto& r) { dated(r, day - 1, day - 1); }), Names{"foto2.JPG"});
    EXPECT_EQ(find([&](auto& r) { dated(r, day, day - 40); }), Names{});
}

TEST_F(SearchRun, SizeDateAndTypeForgetSomeExtensions) {
    const auto everyYear = [&](SearchRequest& r) { r.size = true, dated(r, ofTheYears[0], ofTheYears[1]); };
    EXPECT_EQ(find([&](auto& r) { everyYear(r), r.type = captions.rotuloaudio; }), (Names{"b.mp3", "a.Mp3"}));
    EXPECT_EQ(items[1].type, "Audio file");
    EXPECT_EQ(find([&](auto& r) { everyYear(r), r.type = captions.rotuloaudio, r.unit = "Discos :"; }),
              (Names{"b.mp3", "a.Mp3", "a.mid"}));  // by extension, not by number
    EXPECT_EQ(items[1].type, "Audio file");         // by the chosen type
    EXPECT_EQ(counters.archivosencontrados, 3);
}

TEST_F(SearchRun, RefusedStatementsAndForgottenNotes) {
    const auto all = [&](SearchRequest& r) {
        r.size = r.note = true;
        r.noteText = "jazz";
        r.unit = "Discos :";
        dated(r, ofTheYears[0], ofTheYears[1]);
    };
    for (const std::string& type : {captions.rotuloweb, captions.rotulocomprimido}) {
        counters = {7, 7};
        EXPECT_EQ(find([&](auto& r) { all(r), r.type = type; }), Names{}) << type;
        EXPECT_TRUE(outcome);
        EXPECT_EQ(counters, (search::FoundCounts{7, 0}));
    }
    EXPECT_EQ(find([&](auto& r) { all(r), r.type = captions.rotuloejecutable; }), Names{"z.exe"});
    EXPECT_EQ(find([&](auto& r) { all(r), r.type = captions.rotulovideo; }), Names{"a.avi"});
    EXPECT_EQ(find([](auto& r) { r.note = true, r.noteText = "jazz", r.type = captions.rotuloaudio; }),
              (Names{"b.mp3", "a.mid"}));
    find([](auto& r) { r.name = "it's"; });
    EXPECT_FALSE(outcome) << "only files of a type or unit are passed over in silence";
}

TEST(SizeTexts, NumberAtTheBeginning) {
    const std::pair<const char*, double> texts[] = {
        {"", 0},   {"0", 0},   {"-10", -10}, {" 1 2 3x4", 123}, {"abc", 0},   {"1.5", 1.5}, {"-", 0},
        {"+7", 7}, {"inf", 0}, {"nan", 0},   {"-.5", -.5},      {"1e2", 100}, {"--5", 0},   {"- 1 0", -10}};
    for (const auto& [text, value] : texts) EXPECT_EQ(search::numericValue(text), value) << text;
}

}  // namespace
