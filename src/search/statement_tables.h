#pragma once

#include <array>
#include <span>
#include <string_view>

#include "search/row_set.h"

namespace search {

// Grammar of a statement: the head, one branch per extension (a single one where no type is chosen) joined by
// separators, and the order. A branch is a run of clauses:
//
//   L  largo between      F  fecha between      D  disco       C  carpeta like
//   A  archivo like       X  archivo like, with the branch's extension
//   T  no files           N  comentario like
//
// `and` binds more closely than `or`, so a criterion that a branch lacks is not in force for its extension.

// The pieces that are spelled in more than one way, each where it is told.
enum class Piece {
    BranchOpen,  // before the first clause
    SizeClose,   // behind the upper size
    DateMiddle,  // between the dates
    DateClose,   // behind the upper date
    UnitOpen,    // before and behind the unit
    UnitClose,
    FileOpen,      // before the name in X
    PatternClose,  // behind the extension in X
    NoteOpen,      // before the note
    Separator,     // before every branch but the first
    Order,
};
inline constexpr std::size_t pieceCount = 11;

// The branches of a row, numbered from 1 by extension, also where each has a statement of its own.
struct Branches {
    int first = 1;
    int last = 99;
    [[nodiscard]] constexpr bool contains(int number) const { return first <= number && number <= last; }
};

// The clauses of the rows' branches, as with the date on: with the date off F falls away. An empty text
// repeats the one before; the third stands for all later branches.
struct Shape {
    RowSet rows;
    std::array<std::string_view, 3> branches;
    bool split = false;  // one statement per extension
};

struct Spelling {
    Piece piece;
    std::string_view text;
    RowSet rows;
    Branches branches;
};

// The first shape whose rows contain a row is the row's.
[[nodiscard]] std::span<const Shape> shapes();

// Spellings that change what a search finds, and those that change blanks or case only.
[[nodiscard]] std::span<const Spelling> changingSpellings();
[[nodiscard]] std::span<const Spelling> blankSpellings();

// The extensions of a row in the order of its branches; one empty text where no type is chosen.
[[nodiscard]] std::span<const std::string_view> extensionsOf(const StatementRow& row);

}  // namespace search
