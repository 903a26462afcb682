#pragma once

#include "search/statement_row.h"

namespace search {

// The bits with which the tables name families, cases, dates, types and passes.
namespace rows {

template <class E>
constexpr unsigned bit(E value) {
    return 1u << static_cast<unsigned>(value);
}

inline constexpr unsigned name = bit(Family::Name), size = bit(Family::Size), note = bit(Family::Note),
                          sizeNote = bit(Family::SizeNote);
inline constexpr unsigned anyFamily = name | size | note | sizeNote;

inline constexpr unsigned A = bit(Case::A), B = bit(Case::B), C = bit(Case::C), D = bit(Case::D);

inline constexpr unsigned off = bit(false), on = bit(true), anyDate = off | on;

inline constexpr unsigned audio = bit(FileType::Audio), picture = bit(FileType::Picture),
                          video = bit(FileType::Video), application = bit(FileType::Application),
                          text = bit(FileType::Text), web = bit(FileType::Web),
                          zipped = bit(FileType::Zipped);
inline constexpr unsigned anyType = ~0u;

inline constexpr unsigned folder = bit(PassKind::Folder), file = bit(PassKind::File), anyPass = folder | file;

}  // namespace rows

struct RowSet {
    unsigned families;
    unsigned cases;
    unsigned dates;
    unsigned types = rows::anyType;
    unsigned passes = rows::anyPass;

    [[nodiscard]] constexpr bool contains(const StatementRow& row) const {
        using rows::bit;
        return (families & bit(row.family)) && (cases & bit(row.criteria)) && (dates & bit(row.date)) &&
               (types & bit(row.type)) && (passes & bit(row.pass));
    }
};

}  // namespace search
