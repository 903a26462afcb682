#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/language.h"

namespace print {

// What a report prints of one item, as the list shows it.
struct ReportRow {
    std::string text;
    std::string type;
    std::string size;
    std::string date;
    int picture = 0;  // the small one
};

// Where the items come from. They are asked for in order, once a copy, so that a report of any length takes
// the memory of one page.
class RowSource {
  public:
    virtual ~RowSource() = default;
    [[nodiscard]] virtual std::int64_t count() const = 0;
    [[nodiscard]] virtual ReportRow row(std::int64_t position) const = 0;  // from 0
};

// Positions and sizes are in twips, 1440 to the inch, from the upper left corner of the paper.
struct PlacedText {
    int x = 0;
    int y = 0;       // upper edge of the line
    int blanks = 0;  // widths of a blank between x and the text
    int room =
        0;  // width behind the blanks that the text may take before it meets its neighbour; 0: no limit
    std::string text;
};
struct PlacedPicture {
    int x = 0;
    int y = 0;
    int size = 0;  // width and height
    int picture = 0;
};
struct Page {
    std::vector<PlacedText> texts;
    std::vector<PlacedPicture> pictures;
};

inline constexpr int rowsPerPage = 30;
inline constexpr int nameLimit = 30;  // characters of a name

// The whole name, or its first 30 characters and "..." when it has more.
[[nodiscard]] std::string cutName(const std::string& name);

// The pages of a report over `rows`, which outlives it. Rows break by count alone; lines are `lineHeight`
// apart.
class PageLayout {
  public:
    PageLayout(const RowSource& rows, core::Language idioma, int lineHeight);

    [[nodiscard]] std::int64_t pageCount() const;        // 0 for an empty list
    [[nodiscard]] Page page(std::int64_t number) const;  // from 1

  private:
    const RowSource& m_rows;
    core::Language m_idioma;
    int m_lineHeight;
};

}  // namespace print
