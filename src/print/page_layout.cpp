#include "print/page_layout.h"

#include <algorithm>
#include <array>

namespace print {
namespace {

constexpr int firstHeadTop = 300;
constexpr int nameLeft = 1;  // of the rows; their column's head stands at its own left edge
constexpr int pictureSize = 200;
constexpr int gap = 100;    // kept free before the next column
constexpr int spacing = 5;  // blanks before every text of head and body

struct Column {
    int left;
    int room;
    core::Bilingual firstHead;
    core::Bilingual laterHead;
};
// From the second page on the type's head is written in lower case.
constexpr std::array<Column, 4> columns{{
    {300, 3500 - 300 - gap, {"Nombre ", "Name "}, {"Nombre ", "Name "}},
    {3500, 5500 - 3500 - gap, {"Tipo", "Type"}, {"tipo", "type"}},
    {5500, 7500 - 5500 - gap, {"Tamaño", "Size"}, {"Tamaño", "Size"}},
    {7500, 0, {"Modificado", "Modified"}, {"Modificado", "Modified"}},
}};
constexpr core::Bilingual pageWord{"  Página: ", "  Page: "};

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

std::string cutName(const std::string& name) {
    int characters = 0;
    for (std::size_t at = 0; at < name.size(); ++at) {
        if (continuesCharacter(name[at])) continue;
        if (characters == nameLimit) return name.substr(0, at) + "...";
        ++characters;
    }
    return name;
}

PageLayout::PageLayout(const RowSource& rows, core::Language idioma, int lineHeight)
    : m_rows(rows), m_idioma(idioma), m_lineHeight(lineHeight) {}

std::int64_t PageLayout::pageCount() const {
    return (m_rows.count() + rowsPerPage - 1) / rowsPerPage;
}

Page PageLayout::page(std::int64_t number) const {
    const bool first = number == 1;
    Page page;
    page.texts.push_back({0, 0, 0, 0, std::string{pageWord.in(m_idioma)} + std::to_string(number)});

    // Later pages leave an empty line between the page line and the head.
    int y = first ? firstHeadTop : 2 * m_lineHeight;
    for (const Column& column : columns) {
        const auto& head = first ? column.firstHead : column.laterHead;
        page.texts.push_back({column.left, y, spacing, column.room, std::string{head.in(m_idioma)}});
    }

    const std::int64_t begin = (number - 1) * rowsPerPage;
    const std::int64_t end = std::min(begin + rowsPerPage, m_rows.count());
    for (std::int64_t position = begin; position < end; ++position) {
        y += m_lineHeight;
        ReportRow row = m_rows.row(position);
        page.pictures.push_back({nameLeft, y + 1, pictureSize, row.picture});
        page.texts.push_back({nameLeft, y, spacing, columns[1].left - nameLeft - gap, cutName(row.text)});
        std::string* const values[] = {&row.type, &row.size, &row.date};
        for (std::size_t i = 1; i < columns.size(); ++i)
            page.texts.push_back({columns[i].left, y, spacing, columns[i].room, std::move(*values[i - 1])});
    }
    return page;
}

}  // namespace print
