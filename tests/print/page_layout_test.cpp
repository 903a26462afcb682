#include "print/page_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

using core::Language;
using print::Page;
using print::PageLayout;

namespace {

class ReportRows : public print::RowSource {
  public:
    explicit ReportRows(std::int64_t count) : m_count(count) {}
    [[nodiscard]] std::int64_t count() const override { return m_count; }
    [[nodiscard]] print::ReportRow row(std::int64_t position) const override {
        return {"name" + std::to_string(position + 1), "Archivo", "7 KB", "12/03/2004", 9};
    }

  private:
    std::int64_t m_count;
};

std::vector<std::string> textsAt(const Page& page, int y) {
    std::vector<std::string> found;
    for (const auto& text : page.texts)
        if (text.y == y) found.push_back(text.text);
    return found;
}

using Texts = std::vector<std::string>;

}  // namespace

TEST(PageLayout, BreaksBehindEveryThirtiethRow) {
    for (const auto& [rows, pages, onLast] :
         std::vector<std::array<int, 3>>{{1, 1, 1}, {30, 1, 30}, {31, 2, 1}, {60, 2, 30}, {61, 3, 1}}) {
        const ReportRows source(rows);
        const PageLayout layout(source, Language::Spanish, 240);
        ASSERT_EQ(layout.pageCount(), pages);
        const Page last = layout.page(pages);
        EXPECT_EQ(last.pictures.size(), static_cast<std::size_t>(onLast));
        EXPECT_EQ(last.texts.back().text, "12/03/2004");
        EXPECT_EQ(last.texts[last.texts.size() - 4].text, "name" + std::to_string(rows));
        EXPECT_LT(last.texts.back().y + 240, 15840) << "runs off a letter page";
    }
}

TEST(PageLayout, PlacesHeadsAndRows) {
    const ReportRows source(31);
    const Page first = PageLayout(source, Language::Spanish, 240).page(1);
    EXPECT_EQ(textsAt(first, 0), Texts{"  Página: 1"});
    EXPECT_EQ(textsAt(first, 300), (Texts{"Nombre ", "Tipo", "Tamaño", "Modificado"}));
    EXPECT_EQ(textsAt(first, 540), (Texts{"name1", "Archivo", "7 KB", "12/03/2004"}));

    std::vector<int> columns;
    for (const auto& text : first.texts) {
        if (text.y == 300 || text.y == 540) columns.push_back(text.x);
        EXPECT_EQ(text.blanks, text.y == 0 ? 0 : 5);
    }
    EXPECT_EQ(columns, (std::vector<int>{300, 3500, 5500, 7500, 1, 3500, 5500, 7500}));
    const auto& picture = first.pictures.front();
    EXPECT_EQ((std::array{picture.x, picture.y, picture.size, picture.picture}),
              (std::array{1, 541, 200, 9}));

    // The page line, an empty line, and a head that differs by one letter.
    const Page second = PageLayout(source, Language::English, 240).page(2);
    EXPECT_EQ(textsAt(second, 0), Texts{"  Page: 2"});
    EXPECT_EQ(textsAt(second, 480), (Texts{"Name ", "type", "Size", "Modified"}));
    EXPECT_EQ(textsAt(PageLayout(source, Language::Spanish, 240).page(2), 480)[1], "tipo");
}

TEST(PageLayout, CutsNamesByCharacters) {
    EXPECT_EQ(print::cutName(std::string(31, 'x')), std::string(30, 'x') + "...");
    std::string accents;
    for (int i = 0; i < 30; ++i) accents += i % 2 ? "ñ" : "🎵";
    EXPECT_EQ(print::cutName(accents), accents);
    EXPECT_EQ(print::cutName(accents + "🎵"), accents + "...");
}
